#pragma once

#include <QKeySequence>

namespace NARV::DEV {

class WidgetLibraryPluginTestWidgetPrivate;

//! One entry of a menu of the bench.
struct ActionEntry
{
    const char *name; //!< also of its icon; null for a separator
    const char *text;
    const char *shortcut; //!< portable text, "" for none
    void (*trigger)(WidgetLibraryPluginTestWidgetPrivate &, bool isChecked);
    //! Where it can be used.
    enum Need
    {
        Always,
        Plugin,    //!< a plugin is loaded
        Page,      //!< in editor mode
        Selection, //!< in editor mode, with a widget selected
        Several,   //!< in editor mode, with at least two selected
        PluginPage //!< in editor mode, with a plugin loaded
    } need = Always;
    bool isCheckable = false;
};

//! A menu and its entries.
struct MenuEntry
{
    const char *title;
    const ActionEntry *entries;
    int count;
};

//! The menus in their order; entries that come and go, such as recent files, are added elsewhere.
const QVector<MenuEntry> &benchMenus();

} // namespace NARV::DEV
