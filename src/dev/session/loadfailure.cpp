#include "session/loadfailure.h"

#include <QCoreApplication>

namespace NARV::DEV {

using Kind = LoadFailure::Kind;

static const struct
{
    Kind kind;
    const char *advice;
    const char *outlook = nullptr;
} advices[] = {
    {Kind::Missing,
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                       "Build the plugin, or open it where it has been moved to."),
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure", "It is opened as soon as the file is there.")},
    {Kind::NoLibrary,
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure", "Build the plugin for this machine."),
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure", "It is opened as soon as the library is there.")},
    {Kind::NoPluginFolder,
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                       "A plugin folder is named by the plugin's id, a UUID. If this folder holds "
                       "several plugins, open one of the folders in it.")},
    {Kind::NotCopied, QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                                        "Check that the file can be read and that there is room "
                                        "in the temporary folder, then try again.")},
    {Kind::NoUsableFile,
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                       "Build the library anew: the file is no library, or was not written to its "
                       "end."),
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure", "It is opened again when it changes.")},
    {Kind::OtherMachine,
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                       "Build the library for the machine on which this program runs; a library "
                       "for a panel can only be tried on a panel.")},
    {Kind::NoPlugin,
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                       "Check that the plugin's class has Q_PLUGIN_METADATA with the IID of widget "
                       "libraries, Q_INTERFACES and a default constructor, and that its header is "
                       "compiled by moc.")},
    {Kind::MetaData, QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                                       "Run \"zpplugin check\" on the plugin's JSON file: it names "
                                       "the line of every fault.")},
    {Kind::WrongId, QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                                      "Give the folder the name of the id in the plugin's JSON "
                                      "file, or change the id there.")},
    {Kind::Symbol,
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                       "Add the source file that defines the missing function to the plugin, or "
                       "link the library that has it. \"zpplugin check\" lists all of them.")},
    {Kind::Exception, QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                                        "The plugin's constructor and load functions must not let "
                                        "exceptions out: catch them there.")},
    {Kind::Crash,
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                       "Run this program in a debugger and choose \"Load anyway\" to see where. "
                       "Outside a debugger that may end the program: save your work first.")},
    {Kind::Hang,
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                       "Look for an endless loop, or for waiting, in what it was doing. "
                       "\"Load anyway\" may freeze this program: save your work first.")},
    {Kind::Other,
     QT_TRANSLATE_NOOP("NARV::DEV::LoadFailure",
                       "Run \"zpplugin check\" on the plugin for all that can be found "
                       "out about it.")},
};

static const struct
{
    const char *words;
    Kind kind;
} hints[] = {
    {"the IID ", Kind::NoPlugin},
    {"invalid interface", Kind::NoPlugin},
    {"is not a valid UUID", Kind::NoPluginFolder},
    {"is not equal to the folder name", Kind::WrongId},
    {"undefined symbol", Kind::Symbol},
    {"the plugin threw an exception", Kind::Exception},
};

LoadFailure LoadFailure::of(Kind kind, const QString &path, const QString &title,
                            const QStringList &words)
{
    LoadFailure failure;
    failure.kind = kind;
    failure.path = path;
    failure.title = title;
    failure.words = words;
    const auto translated = [](const char *text) {
        return text ? QCoreApplication::translate("NARV::DEV::LoadFailure", text) : QString();
    };
    for (const auto &entry : advices) {
        if (entry.kind != kind)
            continue;
        failure.advice = translated(entry.advice);
        failure.outlook = translated(entry.outlook);
    }
    return failure;
}

LoadFailure::Kind LoadFailure::kindOf(const QStringList &words)
{
    for (const QString &line : words) {
        for (const auto &hint : hints) {
            if (line.contains(QLatin1String(hint.words)))
                return hint.kind;
        }
    }
    return Kind::Other;
}

} // namespace NARV::DEV
