#include "window/actiontable.h"

#include "data/simulationclock.h"
#include "scene/pageview.h"
#include "scene/sceneediting.h"
#include "window/widgetlibraryplugintestwidget_p.h"

#include <iterator>

namespace NARV::DEV {

using P = WidgetLibraryPluginTestWidgetPrivate;

template<Qt::AlignmentFlag alignment>
static void align(P &d, bool)
{
    SceneEditing::align(d.document, alignment);
}

template<Stacking where>
static void restack(P &d, bool)
{
    SceneEditing::restack(d.document, where);
}

template<int fingers>
static void touch(P &d, bool)
{
    d.setFingers(fingers);
}

#define TEXT(text) QT_TRANSLATE_NOOP("NARV::DEV::WidgetLibraryPluginTestWidget", text)

static const ActionEntry separator = {nullptr, nullptr, nullptr, nullptr};

static const ActionEntry fileEntries[] = {
    {"open", TEXT("&Open plugin folder…"), "Ctrl+O", [](P &d, bool) { d.chooseFolder(); }},
    {"open-library", TEXT("Open &library file…"), "Ctrl+Shift+O",
     [](P &d, bool) { d.chooseLibrary(); }},
    {"recent", TEXT("Open &recent"), "", nullptr},
    {"reload", TEXT("Re&load plugin"), "Ctrl+R", [](P &d, bool) { d.session.reload(); }},
    {"close", TEXT("&Close plugin"), "Ctrl+W", [](P &d, bool) { d.session.close(); },
     ActionEntry::Plugin},
    separator,
    {"new", TEXT("&New page"), "Ctrl+N", [](P &d, bool) { d.newScene(); }},
    {"open-scene", TEXT("O&pen page…"), "Ctrl+Alt+O", [](P &d, bool) { d.chooseScene(); }},
    {"save", TEXT("&Save page"), "Ctrl+S", [](P &d, bool) { d.saveScene(); }},
    {"save-as", TEXT("Save page &as…"), "Ctrl+Shift+S", [](P &d, bool) { d.saveSceneAs(); }},
    {"export", TEXT("Save &picture…"), "Ctrl+Shift+P", [](P &d, bool) { d.exportPicture(); }},
    separator,
    {"quit", TEXT("&Quit"), "Ctrl+Q", [](P &d, bool) { d.quit(); }},
};

static const ActionEntry editEntries[] = {
    {"undo", TEXT("&Undo"), "Ctrl+Z", nullptr},
    {"redo", TEXT("&Redo"), "Ctrl+Shift+Z", nullptr},
    separator,
    {"cut", TEXT("Cu&t"), "Ctrl+X", [](P &d, bool) { d.cut(); }, ActionEntry::Selection},
    {"copy", TEXT("&Copy"), "Ctrl+C", [](P &d, bool) { d.copy(); }, ActionEntry::Selection},
    {"paste", TEXT("&Paste"), "Ctrl+V", [](P &d, bool) { d.paste(); }, ActionEntry::Page},
    {"duplicate", TEXT("Du&plicate"), "Ctrl+D",
     [](P &d, bool) { SceneEditing::duplicate(d.document); }, ActionEntry::Selection},
    {"place-all", TEXT("Place &one of each widget"), "Ctrl+E",
     [](P &d, bool) { SceneEditing::placeAll(d.document); }, ActionEntry::PluginPage},
    {"delete", TEXT("&Delete"), "Del", [](P &d, bool) { SceneEditing::remove(d.document); },
     ActionEntry::Selection},
    {"select-all", TEXT("Select &all"), "Ctrl+A",
     [](P &d, bool) { SceneEditing::selectAll(d.document); }, ActionEntry::Page},
    {"filter", TEXT("Find &field"), "Ctrl+F", [](P &d, bool) { d.findField(); }},
};

static const ActionEntry arrangeEntries[] = {
    {"align-left", TEXT("Align &left"), "Alt+Shift+L", align<Qt::AlignLeft>, ActionEntry::Several},
    {"align-center", TEXT("Align &centres"), "Alt+Shift+C", align<Qt::AlignHCenter>,
     ActionEntry::Several},
    {"align-right", TEXT("Align &right"), "Alt+Shift+R", align<Qt::AlignRight>,
     ActionEntry::Several},
    {"align-top", TEXT("Align &top"), "Alt+Shift+T", align<Qt::AlignTop>, ActionEntry::Several},
    {"align-middle", TEXT("Align &middles"), "Alt+Shift+M", align<Qt::AlignVCenter>,
     ActionEntry::Several},
    {"align-bottom", TEXT("Align &bottom"), "Alt+Shift+B", align<Qt::AlignBottom>,
     ActionEntry::Several},
    separator,
    {"raise", TEXT("R&aise"), "Ctrl+]", restack<Stacking::Up>, ActionEntry::Selection},
    {"lower", TEXT("L&ower"), "Ctrl+[", restack<Stacking::Down>, ActionEntry::Selection},
    {"to-top", TEXT("To the to&p"), "Ctrl+Shift+]", restack<Stacking::ToTop>,
     ActionEntry::Selection},
    {"to-bottom", TEXT("To the botto&m"), "Ctrl+Shift+[", restack<Stacking::ToBottom>,
     ActionEntry::Selection},
};

static const ActionEntry runEntries[] = {
    {"runtime-mode", TEXT("&Run the page"), "F5", [](P &d, bool isOn) { d.setRuntime(isOn); },
     ActionEntry::Always, true},
    separator,
    {"touch-none", TEXT("&Mouse as mouse"), "Ctrl+0", touch<0>, ActionEntry::Always, true},
    {"touch-one", TEXT("Mouse as &one finger"), "Ctrl+1", touch<1>, ActionEntry::Always, true},
    {"touch-two", TEXT("Mouse as &two fingers"), "Ctrl+2", touch<2>, ActionEntry::Always, true},
    {"touch-three", TEXT("Mouse as t&hree fingers"), "Ctrl+3", touch<3>, ActionEntry::Always, true},
    separator,
    {"play", TEXT("Let &time run"), "F6", [](P &d, bool isOn) { d.data.clock().setRunning(isOn); },
     ActionEntry::Always, true},
    {"step", TEXT("&Step"), "F7", [](P &d, bool) { d.data.clock().step(); }},
    {"scenario", TEXT("S&cenarios"), "", nullptr},
};

static const ActionEntry viewEntries[] = {
    {"zoom-in", TEXT("Zoom &in"), "Ctrl++", [](P &d, bool) { d.view->zoomIn(); }},
    {"zoom-out", TEXT("Zoom &out"), "Ctrl+-", [](P &d, bool) { d.view->zoomOut(); }},
    {"zoom-fit", TEXT("&Fit the page"), "Ctrl+9", [](P &d, bool) { d.view->zoomToFit(); }},
    {"zoom-original", TEXT("&100 %"), "Ctrl+8", [](P &d, bool) { d.view->setZoom(1); }},
    separator,
    {"page", TEXT("&Page size"), "", nullptr},
    {"background", TEXT("&Background colour…"), "Ctrl+B", [](P &d, bool) { d.chooseBackground(); }},
    {"checker", TEXT("&Checkerboard"), "Ctrl+K",
     [](P &d, bool isOn) {
         Page page = d.document.page();
         page.checkerboard = isOn;
         d.document.setPage(page);
     },
     ActionEntry::Always, true},
    separator,
    {"language", TEXT("&Language"), "", nullptr},
    {"theme", TEXT("&Theme"), "", nullptr},
    {"docks", TEXT("&Panels"), "", nullptr},
};

template<size_t count>
static MenuEntry menu(const char *title, const ActionEntry (&entries)[count])
{
    return {title, entries, int(count)};
}

const QVector<MenuEntry> &benchMenus()
{
    static const QVector<MenuEntry> menus = {
        menu(TEXT("&File"), fileEntries), menu(TEXT("&Edit"), editEntries),
        menu(TEXT("&Arrange"), arrangeEntries), menu(TEXT("&View"), viewEntries),
        menu(TEXT("&Run"), runEntries)};
    return menus;
}

} // namespace NARV::DEV
