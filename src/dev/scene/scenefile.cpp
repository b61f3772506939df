#include "scene/scenefile.h"

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

static const Key formatName("zpplugin-bench-scene");
static const int formatVersion = 1;
//! Larger values are no sensible geometry and only make trouble.
static const double largestLength = 1e6;

static QString tr(const char *text)
{
    return QCoreApplication::translate("NARV::DEV::SceneFile", text);
}

namespace {

//! Takes typed members out of a JSON object. The first fault stays, with its path.
class SceneReader
{
public:
    SceneReader(const QJsonObject &object, const QString &path, QString &faultPath, QString &fault)
        : m_object(object)
        , m_path(path)
        , m_faultPath(faultPath)
        , m_fault(fault)
    {
    }

    bool hasFault() const { return !m_fault.isEmpty(); }
    QString path(const QString &key) const
    {
        return m_path.isEmpty() ? key : m_path + QLatin1Char('.') + key;
    }

    void fail(const QString &key, const QString &fault)
    {
        if (hasFault())
            return;
        m_faultPath = path(key);
        m_fault = fault;
    }

    QString text(const QString &key)
    {
        const QJsonValue value = m_object.value(key);
        if (!value.isString() || value.toString().isEmpty())
            fail(key, tr("expected a text"));
        return value.toString();
    }

    double number(const QString &key, double missing)
    {
        const QJsonValue value = m_object.value(key);
        if (!value.isUndefined() && !isLength(value))
            fail(key, tr("expected a number"));
        return value.toDouble(missing);
    }

    bool flag(const QString &key)
    {
        const QJsonValue value = m_object.value(key);
        if (!value.isUndefined() && !value.isBool())
            fail(key, tr("expected true or false"));
        return value.toBool();
    }

    QPointF pair(const QString &key)
    {
        const QJsonArray array = m_object.value(key).toArray();
        if (array.size() != 2 || !isLength(array[0]) || !isLength(array[1]))
            fail(key, tr("expected two numbers"));
        return {array.at(0).toDouble(), array.at(1).toDouble()};
    }

    QSizeF size(const QString &key)
    {
        const QPointF size = pair(key);
        if (size.x() < 0 || size.y() < 0)
            fail(key, tr("expected two numbers, none below zero"));
        return {size.x(), size.y()};
    }

    QColor color(const QString &key)
    {
        const QColor color(text(key));
        if (!color.isValid())
            fail(key, tr("expected a colour such as \"#fff3f4f6\""));
        return color;
    }

    //! The object under key; an empty one if there is none.
    QJsonObject object(const QString &key)
    {
        const QJsonValue value = m_object.value(key);
        if (!value.isUndefined() && !value.isObject())
            fail(key, tr("expected an object"));
        return value.toObject();
    }

    template<typename ReadElement>
    void eachObject(const QString &key, ReadElement readElement)
    {
        if (!m_object.value(key).isArray())
            fail(key, tr("expected a list"));
        const QJsonArray array = m_object.value(key).toArray();
        for (int i = 0; i < array.size() && !hasFault(); ++i) {
            const QString place = QStringLiteral("%1[%2]").arg(key).arg(i);
            if (!array[i].isObject())
                fail(place, tr("expected an object"));
            SceneReader element(array[i].toObject(), path(place), m_faultPath, m_fault);
            readElement(element);
        }
    }

private:
    static bool isLength(const QJsonValue &value)
    {
        return value.isDouble() && std::abs(value.toDouble()) <= largestLength;
    }

    QJsonObject m_object;
    QString m_path;
    QString &m_faultPath;
    QString &m_fault;
};

} // namespace

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
static WidgetState readWidget(SceneReader &in)
{
    WidgetState state;
    state.name = in.text(Key("name"));
    state.widgetId = in.text(Key("widget"));
    state.version = in.text(Key("version"));
    state.position = in.pair(Key("position"));
    state.size = in.size(Key("size"));
    state.rotation = in.number(Key("rotation"), 0);
    const QJsonObject fields = in.object(Key("fields"));
    for (auto it = fields.begin(); it != fields.end(); ++it)
        state.values.insert(it.key(), QVariant(it.value()));
    const QJsonObject bindings = in.object(Key("bindings"));
    for (auto it = bindings.begin(); it != bindings.end(); ++it) {
        if (!it.value().isString())
            in.fail(QLatin1String("bindings.") + it.key(), tr("expected a text"));
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

static QList<WidgetState> readWidgets(SceneReader &in)
{
    QList<WidgetState> widgets;
    QSet<QString> names;
    in.eachObject(Key("widgets"), [&](SceneReader &element) {
        widgets += readWidget(element);
        const QString &name = widgets.last().name;
        if (names.contains(name))
            element.fail(Key("name"), tr("another widget has the same name"));
        names += name;
    });
    return widgets;
}

static Page readPage(SceneReader in)
{
    Page page;
    page.size = in.size(Key("size"));
    if (page.size.isEmpty())
        in.fail(Key("size"), tr("expected two numbers above zero"));
    page.background = in.color(Key("background"));
    page.checkerboard = in.flag(Key("checkerboard"));
    return page;
}

static Scene readScene(SceneReader &in, QString &faultPath, QString &fault)
{
    Scene scene;
    if (in.text(Key("format")) != formatName)
        in.fail(Key("format"), tr("this is no scene of the test bench"));
    if (in.number(Key("version"), 0) != formatVersion)
        in.fail(Key("version"), tr("written by another version of the test bench"));
    scene.pluginId = in.text(Key("plugin"));
    scene.page = readPage({in.object(Key("page")), Key("page"), faultPath, fault});
    scene.widgets = readWidgets(in);
    scene.testData = in.object(Key("data"));
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
        {Key("format"), formatName},
        {Key("version"), formatVersion},
        {Key("plugin"), scene.pluginId},
        {Key("page"), page},
        {Key("widgets"), widgetsJson(scene.widgets)},
        {Key("data"), scene.testData},
    };
    return QJsonDocument(root).toJson();
}

//! Parses a text with an object at its root.
static bool parse(const QByteArray &text, QJsonObject &root, QString &problem)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    root = document.object();
    if (document.isNull())
        problem = lineAndColumn(text, error.offset) + QLatin1String(": ") + error.errorString();
    else if (!document.isObject())
        problem = lineAndColumn(text, 0) + QLatin1String(": ") + tr("expected an object");
    return document.isObject();
}

QString SceneFile::withPosition(const QByteArray &text, const QString &path, const QString &problem)
{
    return QStringLiteral("%1: %2: %3")
        .arg(lineAndColumn(text, jsonOffset(text, path)), path, problem);
}

bool SceneFile::fromText(const QByteArray &text, Scene &scene, QString &problem)
{
    QJsonObject root;
    if (!parse(text, root, problem))
        return false;
    QString path, fault;
    SceneReader in(root, {}, path, fault);
    const Scene read = readScene(in, path, fault);
    if (in.hasFault()) {
        problem = withPosition(text, path, fault);
        return false;
    }
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

bool SceneFile::load(const QString &path, Scene &scene, QString &problem)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = QStringLiteral("%1: %2").arg(path, file.errorString());
        return false;
    }
    if (fromText(file.readAll(), scene, problem))
        return true;
    problem = path + QLatin1Char(':') + problem;
    return false;
}

QByteArray SceneFile::widgetsToText(const QList<WidgetState> &widgets)
{
    return QJsonDocument(QJsonObject{{Key("widgets"), widgetsJson(widgets)}}).toJson();
}

bool SceneFile::widgetsFromText(const QByteArray &text, QList<WidgetState> &widgets,
                                QString &problem)
{
    QJsonObject root;
    if (!parse(text, root, problem))
        return false;
    QString path, fault;
    SceneReader in(root, {}, path, fault);
    const QList<WidgetState> read = readWidgets(in);
    if (in.hasFault()) {
        problem = withPosition(text, path, fault);
        return false;
    }
    widgets = read;
    return true;
}

} // namespace NARV::DEV
