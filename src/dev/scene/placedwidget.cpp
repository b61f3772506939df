#include "scene/placedwidget.h"

#include "data/testdata.h"
#include "scene/placeholderitem.h"
#include "scene/thrownby.h"

#include <NARV/AlarmInfo>
#include <NARV/GraphicsObjectPrivate>
#include <NARV/INTERNAL/GraphicsObjectPrivateAccessor>
#include <NARV/INTERNAL/WidgetLibraryPluginPrivateAccessor>
#include <NARV/INTERNAL/WidgetLibraryPluginUtils>
#include <NARV/INTERNAL/WidgetPrivateAccessor>
#include <NARV/WidgetLibraryPluginPrivate>

#include <QGraphicsScene>
#include <QPainter>
#include <QSet>
#include <QStyleOptionGraphicsItem>

#include <algorithm>

namespace NARV::DEV {

using INTERNAL::GraphicsObjectPrivateAccessor;
using INTERNAL::WidgetLibraryPluginPrivateAccessor;
using INTERNAL::WidgetPrivateAccessor;
using FieldType = INTERNAL::WidgetLibraryPluginMetaInformation::FieldType;

static const QLatin1String fontSuffix(".font");

PlacedWidget::PlacedWidget(const WidgetState &state, QObject *parent)
    : QObject(parent)
    , m_state(state)
{
}

PlacedWidget::~PlacedWidget()
{
    unmake();
}

PlacedWidget::FieldMetaInformation PlacedWidget::field(const QString &fieldId) const
{
    const QMap<QString, FieldMetaInformation> &fields = m_description.fields();
    const auto found = fields.constFind(fieldId);
    if (found != fields.constEnd() || !fieldId.endsWith(fontSuffix))
        return found == fields.constEnd() ? FieldMetaInformation() : *found;
    const FieldMetaInformation owner = fields.value(fieldId.chopped(fontSuffix.size()));
    return owner.isMultiLanguageText() ? owner : FieldMetaInformation();
}

//! A value out of a scene file that no field of the library takes.
static bool isUnread(const QVariant &value)
{
    return value.userType() == QMetaType::QJsonValue;
}

static bool isBindingOnly(const FieldMetaInformation &field)
{
    return field.type() == FieldType::Tag || field.type() == FieldType::Trend;
}

static bool hasOption(const FieldMetaInformation &field, int index)
{
    const QList<QPair<int, QString>> &options = field.options();
    return std::any_of(options.begin(), options.end(),
                       [&](const QPair<int, QString> &option) { return option.first == index; });
}

static bool isFontOf(const FieldMetaInformation &field, const QString &fieldId)
{
    return field.id() != fieldId;
}

QString PlacedWidget::title() const
{
    const QString display = m_description.display().get(m_host.language, true);
    if (display.isEmpty() || !name().startsWith(m_state.widgetId))
        return name();
    return display + name().mid(m_state.widgetId.size());
}

QString PlacedWidget::fieldTitle(const QString &fieldId) const
{
    const FieldMetaInformation of = field(fieldId);
    if (of.display().get(m_host.language, true).isEmpty())
        return fieldId;
    return fieldLabel(of, isFontOf(of, fieldId), m_host.language);
}

NARV::WidgetPrivate *PlacedWidget::widget() const
{
    return m_widget ? WidgetPrivateAccessor::priv(m_widget.get()) : nullptr;
}

NARV::GraphicsObject *PlacedWidget::item() const
{
    return m_item;
}

QGraphicsObject *PlacedWidget::shownItem() const
{
    if (m_placeholder)
        return m_placeholder.get();
    return m_item;
}

QVariant PlacedWidget::fieldValue(const QString &fieldId) const
{
    const FieldMetaInformation of = field(fieldId);
    if (isBindingOnly(of))
        return binding(fieldId);
    if (!m_widget || of.isMultiLanguageText())
        return authoredValue(fieldId);
    return widget()->getFieldValue(fieldId, true);
}

QVariant PlacedWidget::defaultValue(const QString &fieldId) const
{
    const FieldMetaInformation of = field(fieldId);
    return isFontOf(of, fieldId) ? QVariant(of.defaultFont()) : of.defaultValue();
}

bool PlacedWidget::isFieldChanged(const QString &fieldId) const
{
    return m_state.values.contains(fieldId) || m_state.bindings.contains(fieldId);
}

bool PlacedWidget::toFieldValue(const QString &fieldId, const QVariant &value,
                                QVariant &authored) const
{
    const FieldMetaInformation of = field(fieldId);
    if (!of.isValid() || isBindingOnly(of))
        return false;
    const bool isTranslated = of.isMultiLanguageText() && !isFontOf(of, fieldId);
    authored = value;
    if (isTranslated && value.userType() == defaultValue(fieldId).userType())
        return true;
    QVariant plain = value;
    if (!m_description.fieldInfo().value(fieldId).convertToFieldType(plain))
        return false;
    if (of.type() == FieldType::Option && !hasOption(of, plain.toInt()))
        return false;
    authored = isTranslated ? withLanguage(authoredValue(fieldId), plain, m_host.language)
                            : INTERNAL::WidgetLibraryPluginUtils::fieldValueCheckBeforeSet(
                                  of.type(), plain, fieldId, m_description);
    return true;
}

bool PlacedWidget::canBeBound(const QString &fieldId) const
{
    const FieldMetaInformation of = field(fieldId);
    return of.id() == fieldId && (of.tagCanBeAttached() || isBindingOnly(of));
}

QVariant PlacedWidget::authoredValue(const QString &fieldId) const
{
    const auto set = m_state.values.constFind(fieldId);
    const bool isSet = set != m_state.values.constEnd() && !isUnread(*set);
    return isSet ? *set : defaultValue(fieldId);
}

QVariant PlacedWidget::hostValue(const QString &fieldId) const
{
    const QString bound = binding(fieldId);
    if (isBindingOnly(field(fieldId)))
        return bound;
    const QVariant tag = bound.isEmpty() ? QVariant() : m_host.data->tagValue(bound);
    return tag.isValid() ? tag : inLanguage(authoredValue(fieldId), m_host.language);
}

void PlacedWidget::store(const QString &fieldId, const QVariant &authored)
{
    if (isSameValue(authored, defaultValue(fieldId)))
        m_state.values.remove(fieldId);
    else
        m_state.values.insert(fieldId, authored);
}

QStringList PlacedWidget::fieldIds() const
{
    QStringList ids;
    for (const FieldMetaInformation &field : m_description.fields()) {
        ids += field.id();
        if (field.isMultiLanguageText())
            ids += fontId(field.id());
    }
    return ids;
}

QStringList PlacedWidget::make(const WidgetHost &host)
{
    unmake();
    m_host = host;
    m_description = host.library
                        ? host.library->widgets().value({m_state.widgetId, m_state.version})
                        : WidgetMetaInformation();
    QStringList problems;
    if (m_description.isValid()) {
        problems = readValues();
        makeWidget();
    } else if (host.library) {
        problems += tr("%1: the library has no widget \"%2\" in version %3")
                        .arg(name(), m_state.widgetId, m_state.version);
    }
    if (!m_item)
        makePlaceholder(missingReason());
    setStackingPosition(m_stackingPosition);
    placeItem();
    if (m_widget)
        widget()->init();
    Q_EMIT instanceChanged();
    return problems;
}

// The library may be another than the one for which the values were set.
QStringList PlacedWidget::readValues()
{
    QStringList problems;
    for (auto it = m_state.values.begin(); it != m_state.values.end(); ++it) {
        const FieldMetaInformation of = field(it.key());
        if (of.isValid() && it->userType() == defaultValue(it.key()).userType())
            continue;
        const QJsonValue json = toJson(*it);
        QVariant value;
        const bool fits = of.isValid() && fromJson(of, isFontOf(of, it.key()), json, value);
        *it = fits ? value : QVariant(json);
        if (!of.isValid())
            problems += tr("%1: there is no field \"%2\" any more").arg(name(), it.key());
        else if (!fits)
            problems += tr("%1: the value does not fit the field \"%2\"").arg(name(), it.key());
    }
    for (auto it = m_state.bindings.begin(); it != m_state.bindings.end(); ++it) {
        if (!field(it.key()).isValid())
            problems += tr("%1: there is no field \"%2\" any more").arg(name(), it.key());
    }
    return problems;
}

void PlacedWidget::makeWidget()
{
    const auto *library = WidgetLibraryPluginPrivateAccessor::priv(m_host.plugin);
    m_widget.reset(library->newWidgetInstance(m_state.widgetId, m_state.version,
                                              m_host.library->id(), m_description.fieldInfo(),
                                              m_host.actionManager));
    if (!m_widget)
        return;
    for (const QString &id : fieldIds())
        widget()->setFieldValue(id, hostValue(id), true, false);
    connect(widget(), &WidgetPrivate::fieldIsChanged, this, &PlacedWidget::takeWrite);
    m_item = widget()->newGraphicsObjectInstance();
    if (!m_item)
        return;
    m_host.scene->addItem(m_item);
    connect(m_item, &QObject::destroyed, this,
            [this] { breakLater(tr("has deleted its own graphics object")); });
}

QString PlacedWidget::missingReason() const
{
    if (!m_host.library)
        return tr("No plugin is open");
    return m_description.isValid() ? tr("The widget could not be made")
                                   : tr("The open library does not have this widget");
}

// Not at once, as the widget's code may still be running further up the stack.
void PlacedWidget::breakLater(const QString &reason)
{
    const NARV::Widget *culprit = m_widget.get();
    const auto breakDown = [this, culprit, reason] {
        if (m_widget.get() != culprit)
            return; // made anew since
        const WidgetMetaInformation description = m_description;
        unmake();
        m_description = description;
        makePlaceholder(tr("The widget %1").arg(reason));
        setStackingPosition(m_stackingPosition);
        placeItem();
        Q_EMIT instanceChanged();
        Q_EMIT broken(reason);
    };
    QMetaObject::invokeMethod(this, breakDown, Qt::QueuedConnection);
}

void PlacedWidget::tryPaint()
{
    if (!m_item)
        return;
    QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&nothing);
    const QStyleOptionGraphicsItem option;
    const QString thrown = thrownBy([&] { m_item->paint(&painter, &option, nullptr); });
    if (!thrown.isEmpty())
        breakLater(tr("has thrown in paint(): %1").arg(thrown));
}

void PlacedWidget::makePlaceholder(const QString &reason)
{
    const QString title = m_state.widgetId + QLatin1Char(' ') + m_state.version;
    m_placeholder = std::make_unique<PlaceholderItem>(title, reason);
    m_host.scene->addItem(m_placeholder.get());
}

void PlacedWidget::unmake()
{
    if (!m_widget && !m_placeholder)
        return;
    if (m_item)
        m_item->disconnect(this);
    if (m_widget) {
        disconnect(widget(), nullptr, this, nullptr);
        widget()->deinit();
    }
    delete m_item;
    m_placeholder.reset();
    m_widget.reset();
    m_description = {};
    Q_EMIT instanceChanged();
}

void PlacedWidget::setStackingPosition(int position)
{
    m_stackingPosition = position;
    if (QGraphicsObject *item = shownItem())
        item->setZValue(position);
}

void PlacedWidget::placeItem()
{
    QGraphicsObject *item = shownItem();
    if (!item)
        return;
    if (m_placeholder)
        m_placeholder->setSize(m_state.size);
    else
        GraphicsObjectPrivateAccessor::priv(m_item)->resize(m_state.size);
    item->setTransformOriginPoint(m_state.size.width() / 2, m_state.size.height() / 2);
    item->setPos(m_state.position);
    item->setRotation(m_state.rotation);
}

static bool isSameGeometry(const WidgetState &a, const WidgetState &b)
{
    return a.position == b.position && a.size == b.size &&
           qFuzzyCompare(1 + a.rotation, 1 + b.rotation);
}

//! The keys under which two maps differ.
template<typename Map, typename IsSame>
static QStringList differences(const Map &a, const Map &b, IsSame isSame)
{
    QStringList keys;
    for (auto it = a.begin(); it != a.end(); ++it) {
        const auto other = b.constFind(it.key());
        if (other == b.constEnd() || !isSame(*it, *other))
            keys += it.key();
    }
    for (auto it = b.begin(); it != b.end(); ++it) {
        if (!a.contains(it.key()))
            keys += it.key();
    }
    return keys;
}

template<typename Map>
static void copyEntry(const Map &from, Map &to, const QString &key)
{
    const auto found = from.constFind(key);
    if (found == from.constEnd())
        to.remove(key);
    else
        to.insert(key, *found);
}

void PlacedWidget::apply(const WidgetState &from, const WidgetState &to)
{
    const QStringList values = differences(from.values, to.values, isSameValue);
    const QStringList bindings = differences(from.bindings, to.bindings, std::equal_to<QString>());
    for (const QString &id : values)
        copyEntry(to.values, m_state.values, id);
    for (const QString &id : bindings)
        copyEntry(to.bindings, m_state.bindings, id);
    if (!bindings.isEmpty())
        Q_EMIT bindingsChanged();
    for (const QString &id : (QSet<QString>(values.begin(), values.end()) +
                              QSet<QString>(bindings.begin(), bindings.end())))
        giveField(id);
    if (isSameGeometry(from, to))
        return;
    m_state.position = to.position;
    m_state.size = to.size;
    m_state.rotation = to.rotation;
    placeItem();
    Q_EMIT geometryChanged();
}

void PlacedWidget::giveField(const QString &fieldId)
{
    if (m_widget && field(fieldId).isValid())
        widget()->setFieldValue(fieldId, hostValue(fieldId), true, true);
    Q_EMIT fieldChanged(fieldId);
}

void PlacedWidget::setLanguage(const QString &code)
{
    m_host.language = code;
    for (const FieldMetaInformation &field : m_description.fields()) {
        if (field.isMultiLanguageText())
            giveField(field.id());
    }
}

void PlacedWidget::takeTag(const QString &fieldId, const QVariant &value)
{
    if (!m_widget)
        return;
    widget()->setFieldValue(fieldId, value, true, true);
    Q_EMIT fieldChanged(fieldId);
}

void PlacedWidget::takeAlarm(const NARV::AlarmInfo &alarm)
{
    if (m_widget && m_description.receiveAlarmsEvents())
        widget()->alarmEvent(alarm);
}

void PlacedWidget::takeWrite(const QString &fieldId, const QVariant &value)
{
    const QString bound = binding(fieldId);
    if (bound.isEmpty())
        store(fieldId, withLanguage(authoredValue(fieldId), value, m_host.language));
    else
        m_host.data->writeTag(bound, value);
    Q_EMIT written(fieldId, value);
    Q_EMIT fieldChanged(fieldId);
}

} // namespace NARV::DEV
