#include "window/welcomepage.h"

#include "session/recentplugins.h"
#include "window/icons.h"
#include "window/menutext.h"

#include <QCommandLinkButton>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

namespace NARV::DEV {

static const int contentWidth = 560;
static const int shownRecent = 5;

static QLabel *newLabel(const QString &text, double scale, bool isBold)
{
    auto *label = new QLabel(text);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(isBold);
    label->setFont(font);
    label->setWordWrap(true);
    return label;
}

static QCommandLinkButton *newButton(const QString &text, const QString &description,
                                     const QString &icon)
{
    auto *button = new QCommandLinkButton(withoutShortcut(text), withoutShortcut(description));
    button->setIcon(benchIcon(icon));
    button->setAutoDefault(true); // Enter presses it
    button->setAccessibleName(text);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true); // as its hint is the height of a narrow one
    button->setSizePolicy(policy);
    return button;
}

WelcomePage::WelcomePage(QWidget *parent)
    : QScrollArea(parent)
    , m_recent(new QVBoxLayout)
{
    setObjectName(QStringLiteral("welcome"));
    auto *folder = newButton(tr("Open a plugin folder…"),
                             tr("The folder named by the plugin's id, as a build makes it"),
                             QStringLiteral("open"));
    folder->setObjectName(QStringLiteral("welcomeOpenFolder"));
    auto *library = newButton(tr("Open a library file…"),
                              tr("The shared library of a plugin that is somewhere else"),
                              QStringLiteral("open"));
    connect(folder, &QCommandLinkButton::clicked, this, &WelcomePage::openFolderRequested);
    connect(library, &QCommandLinkButton::clicked, this, &WelcomePage::openLibraryRequested);

    auto *column = new QVBoxLayout;
    column->addStretch(1);
    column->addWidget(newLabel(tr("Try out a widget library"), 1.6, true));
    column->addWidget(newLabel(
        tr("Open a plugin, or drop its folder or library here. Then:\n"
           "1.  Double-click a widget in the panel “Widgets” to place it on the page.\n"
           "2.  Change its fields on the right; bind them to tags, which move on their own.\n"
           "3.  Press F5 to run the page, raise an alarm and touch the widgets."),
        1, false));
    column->addSpacing(8);
    column->addWidget(folder);
    column->addWidget(library);
    column->addLayout(m_recent);
    column->addStretch(2);

    auto *content = new QWidget;
    content->setLayout(column);
    content->setMaximumWidth(contentWidth);
    auto *page = new QWidget;
    auto *row = new QHBoxLayout(page);
    row->addStretch(1);
    row->addWidget(content, 100);
    row->addStretch(1);
    setWidget(page);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusProxy(folder);
}

void WelcomePage::showRecent(const RecentPlugins &recent)
{
    while (QLayoutItem *item = m_recent->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const QStringList paths = recent.paths().mid(0, shownRecent);
    if (paths.isEmpty())
        return;
    m_recent->addSpacing(8);
    m_recent->addWidget(newLabel(tr("Opened lately"), 1.1, true));
    for (const QString &path : paths) {
        const bool isThere = QFileInfo::exists(path);
        const QString shown = QDir::toNativeSeparators(path);
        auto *button =
            newButton(recent.name(path), isThere ? shown : tr("%1 is no longer there").arg(shown),
                      QStringLiteral("recent"));
        button->setEnabled(isThere);
        connect(button, &QCommandLinkButton::clicked, this,
                [this, path] { Q_EMIT recentRequested(path); });
        m_recent->addWidget(button);
    }
}

} // namespace NARV::DEV
