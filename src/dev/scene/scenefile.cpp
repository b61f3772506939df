#include "scene/scenefile.h"

#include "data/jsonreader.h"
#include "scene/authoredvalue.h"
#include "scene/jsonposition.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <QSet>

#include <cmath>

namespace NARV::DEV {

using Key = QLatin1String;

static const char formatName[] = "zpplugin-bench-page";
static const int formatVersion = 1;
//! Larger values are no sensible geometry and only make trouble.
static const double largestLength = 1e6;
//! More would take so long to make that the program seems to hang.
static const int mostWidgets = 10000;

static QString tr(const char *text)
{
    return QCoreApplication::translate("NARV::DEV::SceneFile", text);
}

static bool isLength(const QJsonValue &value)
{
    return value.isDouble() && std::abs(value.toDouble()) <= largestLength;
}

static void readPair(JsonReader &in, const char *key, double &a, double &b, double minimum)
{
    in.need(key).value(key, [&](const QJsonValue &value) {
        const QJsonArray array = value.toArray();
        const bool isPair = array.size() == 2 && isLength(array[0]) && isLength(array[1]);
        a = array.at(0).toDouble();
        b = array.at(1).toDouble();
        return isPair && a >= minimum && b >= minimum
                   ? QString()
                   : tr("two numbers from %1 to %2 are needed").arg(minimum).arg(largestLength);
    });
}

static QSizeF readSize(JsonReader &in, double minimum)
{
    double width = 0, height = 0;
    readPair(in, "size", width, height, minimum);
    return {width, height};
}

//! A text that must be there and not be empty.
static QString readText(JsonReader &in, const char *key)
{
    QString text;
    in.need(key).text(key, text);
    if (in.isGood() && text.isEmpty())
        in.fail(key, tr("is empty"));
    return text;
}

static QJsonObject readMembers(JsonReader &in, const char *key)
{
    QJsonObject object;
    in.value(key, [&](const QJsonValue &value) {
        object = value.toObject();
        return value.isObject() ? QString() : JsonReader::isNo("an object");
    });
    return object;
}

static QJsonArray pairJson(double a, double b)
{
    return {a, b};
}

static QJsonObject widgetJson(const WidgetState &state)
{
    QJsonObject object{
        {Key("name"), state.name},
        {Key("widget"), state.widgetId},
        {Key("version"), state.version},
        {Key("position"), pairJson(state.position.x(), state.position.y())},
        {Key("size"), pairJson(state.size.width(), state.size.height())},
    };
    if (state.rotation != 0)
        object.insert(Key("rotation"), state.rotation);
    QJsonObject fields;
    for (auto it = state.values.begin(); it != state.values.end(); ++it)
        fields.insert(it.key(), toJson(*it));
    QJsonObject bindings;
    for (auto it = state.bindings.begin(); it != state.bindings.end(); ++it)
        bindings.insert(it.key(), *it);
    if (!fields.isEmpty())
        object.insert(Key("fields"), fields);
    if (!bindings.isEmpty())
        object.insert(Key("bindings"), bindings);
    return object;
}

// The values stay JSON until the page knows the fields of the widget.
static WidgetState readWidget(JsonReader &in)
{
    WidgetState state;
    state.name = readText(in, "name");
    state.widgetId = readText(in, "widget");
    state.version = readText(in, "version");
    readPair(in, "position", state.position.rx(), state.position.ry(), -largestLength);
    state.size = readSize(in, 0);
    in.value("rotation", [&state](const QJsonValue &value) {
        state.rotation = value.toDouble();
        return isLength(value)
                   ? QString()
                   : tr("a number from %1 to %2 is needed").arg(-largestLength).arg(largestLength);
    });
    const QJsonObject fields = readMembers(in, "fields");
    for (auto it = fields.begin(); it != fields.end(); ++it)
        state.values.insert(it.key(), QVariant(it.value()));
    const QJsonObject bindings = readMembers(in, "bindings");
    for (auto it = bindings.begin(); it != bindings.end(); ++it) {
        if (!it.value().isString())
            in.fail("bindings", tr("\"%1\" is no text").arg(it.key()));
        state.bindings.insert(it.key(), it.value().toString());
    }
    return state;
}

static QJsonArray widgetsJson(const QList<WidgetState> &widgets)
{
    QJsonArray array;
    for (const WidgetState &state : widgets)
        array += widgetJson(state);
    return array;
}

static QList<WidgetState> readWidgets(JsonReader &in)
{
    QList<WidgetState> widgets;
    QSet<QString> names;
    in.need("widgets").objects("widgets", [&](JsonReader &element) {
        if (widgets.size() == mostWidgets)
            element.fail(nullptr, tr("a page holds at most %1 widgets").arg(mostWidgets));
        widgets += readWidget(element);
        const QString &name = widgets.last().name;
        if (element.isGood() && names.contains(name))
            element.fail("name", tr("another widget is called \"%1\"").arg(name));
        names += name;
    });
    return widgets;
}

static Page readPage(JsonReader &in)
{
    Page page;
    page.size = readSize(in, 1);
    in.flag("checkerboard", page.checkerboard);
    in.need("background").value("background", [&](const QJsonValue &value) {
        page.background = QColor(value.toString());
        return page.background.isValid() ? QString()
                                         : tr("a colour such as \"#fff3f4f6\" is needed");
    });
    return page;
}

static Scene readScene(JsonReader &in)
{
    Scene scene;
    int version = 0;
    if (readText(in, "format") != Key(formatName))
        in.fail("format", tr("is not \"%1\"").arg(Key(formatName)));
    in.need("version").whole("version", version, formatVersion, formatVersion);
    in.text("plugin", scene.pluginId);
    in.need("page").object("page", [&](JsonReader &page) { scene.page = readPage(page); });
    scene.widgets = readWidgets(in);
    scene.testData = readMembers(in, "data");
    in.finish();
    return scene;
}

QByteArray SceneFile::toText(const Scene &scene)
{
    const QJsonObject page{
        {Key("size"), pairJson(scene.page.size.width(), scene.page.size.height())},
        {Key("background"), scene.page.background.name(QColor::HexArgb)},
        {Key("checkerboard"), scene.page.checkerboard},
    };
    const QJsonObject root{
        {Key("format"), Key(formatName)},
        {Key("version"), formatVersion},
        {Key("plugin"), scene.pluginId},
        {Key("page"), page},
        {Key("widgets"), widgetsJson(scene.widgets)},
        {Key("data"), scene.testData},
    };
    return QJsonDocument(root).toJson();
}

QString SceneFile::withPosition(const QByteArray &text, const QString &problem)
{
    const QString path = problem.section(QLatin1String(": "), 0, 0);
    return lineAndColumn(text, jsonOffset(text, path)) + QLatin1String(": ") + problem;
}

//! Reads the object that the text is with read(reader).
template<typename Read>
static bool readText(const QByteArray &text, QString &problem, Read read)
{
    if (text.size() > SceneFile::mostBytes) {
        problem = lineAndColumn(text, SceneFile::mostBytes) + QLatin1String(": ") +
                  tr("more than %1 MiB are not read").arg(SceneFile::mostBytes >> 20);
        return false;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (!document.isObject()) {
        problem = lineAndColumn(text, error.offset) + QLatin1String(": ") +
                  (document.isNull() ? error.errorString() : tr("an object is needed"));
        return false;
    }
    QString fault;
    JsonReader in(document.object(), fault);
    read(in);
    if (fault.isEmpty())
        return true;
    problem = SceneFile::withPosition(text, fault);
    return false;
}

bool SceneFile::fromText(const QByteArray &text, Scene &scene, QString &problem)
{
    Scene read;
    if (!readText(text, problem, [&](JsonReader &in) { read = readScene(in); }))
        return false;
    scene = read;
    return true;
}

bool SceneFile::save(const QString &path, const Scene &scene, QString &problem)
{
    QSaveFile file(path);
    const QByteArray text = toText(scene);
    // A full disk may show only when the bytes leave.
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush() &&
        file.commit())
        return true;
    problem = QStringLiteral("%1: %2").arg(path, file.errorString());
    return false;
}

QByteArray SceneFile::widgetsToText(const QList<WidgetState> &widgets)
{
    return QJsonDocument(QJsonObject{{Key("widgets"), widgetsJson(widgets)}}).toJson();
}

bool SceneFile::widgetsFromText(const QByteArray &text, QList<WidgetState> &widgets,
                                QString &problem)
{
    QList<WidgetState> read;
    if (!readText(text, problem, [&](JsonReader &in) { read = readWidgets(in); }))
        return false;
    widgets = read;
    return true;
}

} // namespace NARV::DEV
