#include "window/theme.h"

#include <QApplication>
#include <QPalette>

namespace NARV::DEV {

namespace {

struct RoleColor
{
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

} // namespace

static const RoleColor colors[] = {
    {QPalette::Window, 0xfff0f1f3, 0xff1f2226},
    {QPalette::WindowText, 0xff1d2126, 0xffe6e8ea},
    {QPalette::Base, 0xffffffff, 0xff2b2f35},
    {QPalette::AlternateBase, 0xfff5f6f8, 0xff31353c},
    {QPalette::Text, 0xff1d2126, 0xffe6e8ea},
    {QPalette::PlaceholderText, 0xff646b75, 0xff9aa2ad},
    {QPalette::Button, 0xffe6e8eb, 0xff3a3f47},
    {QPalette::ButtonText, 0xff1d2126, 0xffe6e8ea},
    {QPalette::BrightText, 0xffffffff, 0xffffffff},
    {QPalette::ToolTipBase, 0xfffff6d5, 0xff4a4326},
    {QPalette::ToolTipText, 0xff1d2126, 0xfff5efd8},
    {QPalette::Highlight, 0xff1a66c2, 0xff3d8be0},
    {QPalette::HighlightedText, 0xffffffff, 0xff0e1114},
    {QPalette::Link, 0xff0b57b0, 0xff7ab6ff},
    {QPalette::Light, 0xffffffff, 0xff474c54},
    {QPalette::Midlight, 0xfff7f8f9, 0xff3c4148},
    {QPalette::Mid, 0xffc2c6cc, 0xff14161a},
    {QPalette::Dark, 0xff9aa0a8, 0xff101215},
    {QPalette::Shadow, 0xff6d737c, 0xff000000},
};

static const QRgb disabledText[] = {0xff5f666f, 0xffa2a9b3};

static QPalette themePalette(Theme theme)
{
    QPalette palette;
    if (theme == Theme::System)
        return palette;
    const bool isDark = theme == Theme::Dark;
    for (const RoleColor &color : colors)
        palette.setColor(color.role, QColor(isDark ? color.dark : color.light));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(disabledText[isDark ? 1 : 0]));
    return palette;
}

void applyTheme(Theme theme)
{
    QApplication::setPalette(QPalette()); // the desktop's, which the theme changes
    QApplication::setPalette(themePalette(theme));
}

} // namespace NARV::DEV
