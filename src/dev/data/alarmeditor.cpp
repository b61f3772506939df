#include "data/alarmeditor.h"

#include "data/wheelguard.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>

namespace NARV::DEV {

AlarmEditor::AlarmEditor(QWidget *parent)
    : QWidget(parent)
    , m_form(new QFormLayout(this))
    , m_description(addLine(QStringLiteral("description"), tr("&Description")))
    , m_severity(addChoice(QStringLiteral("severity"), tr("Severit&y"), alarmSeverityNames()))
    , m_groups(addLine(QStringLiteral("groups"), tr("&Groups")))
    , m_tag(addChoice(QStringLiteral("tag"), tr("&Tag"), {}))
    , m_limitKind(addChoice(QStringLiteral("limitKind"), tr("Ra&ised"),
                            {tr("by hand"), tr("above the limit"), tr("below the limit")}))
    , m_limit(addNumber(QStringLiteral("limit"), tr("&Limit")))
    , m_hysteresis(addNumber(QStringLiteral("hysteresis"), tr("&Hysteresis")))
    , m_acknowledge(addFlag(QStringLiteral("acknowledge"), tr("To be ac&knowledged")))
    , m_reset(addFlag(QStringLiteral("reset"), tr("To be re&set")))
    , m_blink(addFlag(QStringLiteral("blink"), tr("&Blinks")))
{
    m_form->setContentsMargins(4, 0, 4, 0);
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_groups->setPlaceholderText(tr("tank, pumps"));
    m_hysteresis->setMinimum(0);
    addColors();
}

AlarmEditor::~AlarmEditor() = default;

void AlarmEditor::place(QWidget *editor, const QString &name, const QString &label)
{
    editor->setObjectName(QLatin1String("alarm.") + name);
    editor->setAccessibleName(QString(label).remove(QLatin1Char('&')));
}

QLineEdit *AlarmEditor::addLine(const QString &name, const QString &label)
{
    auto *line = new QLineEdit;
    place(line, name, label);
    m_form->addRow(label, line);
    connect(line, &QLineEdit::editingFinished, this, &AlarmEditor::edit);
    return line;
}

QComboBox *AlarmEditor::addChoice(const QString &name, const QString &label,
                                  const QStringList &choices)
{
    auto *box = new QComboBox;
    new WheelGuard(box);
    place(box, name, label);
    box->addItems(choices);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_form->addRow(label, box);
    connect(box, QOverload<int>::of(&QComboBox::activated), this, &AlarmEditor::edit);
    return box;
}

QDoubleSpinBox *AlarmEditor::addNumber(const QString &name, const QString &label)
{
    constexpr double most = 1e12;
    auto *box = new QDoubleSpinBox;
    new WheelGuard(box);
    place(box, name, label);
    box->setRange(-most, most);
    box->setDecimals(3);
    box->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    box->setKeyboardTracking(false);
    box->setMinimumWidth(60);
    m_form->addRow(label, box);
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &AlarmEditor::edit);
    return box;
}

QCheckBox *AlarmEditor::addFlag(const QString &name, const QString &label)
{
    auto *box = new QCheckBox(label);
    place(box, name, label);
    m_form->addRow(box);
    connect(box, &QCheckBox::toggled, this, &AlarmEditor::edit);
    return box;
}

void AlarmEditor::addColors()
{
    m_state = addChoice(QStringLiteral("colorState"), tr("&Colours when"), alarmStateNames());
    m_state->setCurrentIndex(AlarmInfo::StateTriggeredNotAcknowledged);
    connect(m_state, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &AlarmEditor::showColors);
    auto *row = new QHBoxLayout;
    m_background =
        newColorButton(QStringLiteral("background"), tr("Fill"), &AlarmInfoData::backgroundColors);
    m_foreground =
        newColorButton(QStringLiteral("foreground"), tr("Text"), &AlarmInfoData::foregroundColors);
    auto *none = new QToolButton;
    place(none, QStringLiteral("noColors"), tr("No colours"));
    none->setText(tr("None"));
    none->setFocusPolicy(Qt::StrongFocus);
    connect(none, &QToolButton::clicked, this, [this] {
        setColor(&AlarmInfoData::backgroundColors, {});
        setColor(&AlarmInfoData::foregroundColors, {});
    });
    for (QToolButton *button : {m_background, m_foreground, none})
        row->addWidget(button);
    row->addStretch(1);
    m_form->addRow(row);
}

QToolButton *AlarmEditor::newColorButton(const QString &name, const QString &label,
                                         QMap<AlarmInfo::State, QColor> AlarmInfoData::*colors)
{
    auto *button = new QToolButton;
    place(button, name, label);
    button->setText(label);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::clicked, this, [this, colors] { chooseColor(colors); });
    return button;
}

void AlarmEditor::chooseColor(QMap<AlarmInfo::State, QColor> AlarmInfoData::*colors)
{
    const auto state = AlarmInfo::State(m_state->currentIndex());
    auto *dialog = new QColorDialog((m_alarm.info.*colors).value(state), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Colour in this state"));
    dialog->setOption(QColorDialog::ShowAlphaChannel);
    connect(dialog, &QColorDialog::colorSelected, this,
            [this, colors](const QColor &color) { setColor(colors, color); });
    dialog->open();
}

void AlarmEditor::setColor(QMap<AlarmInfo::State, QColor> AlarmInfoData::*colors,
                           const QColor &color)
{
    const auto state = AlarmInfo::State(m_state->currentIndex());
    if (color.isValid())
        (m_alarm.info.*colors).insert(state, color);
    else
        (m_alarm.info.*colors).remove(state);
    showColors();
    edit();
}

static QIcon swatch(const QColor &color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color.isValid() ? color : QColor(Qt::transparent));
    return QIcon(pixmap);
}

void AlarmEditor::showColors()
{
    const auto state = AlarmInfo::State(m_state->currentIndex());
    m_background->setIcon(swatch(m_alarm.info.backgroundColors.value(state)));
    m_foreground->setIcon(swatch(m_alarm.info.foregroundColors.value(state)));
}

void AlarmEditor::setTags(const QStringList &tags)
{
    m_tag->clear();
    m_tag->addItem(tr("(none)"), QString());
    for (const QString &tag : tags)
        m_tag->addItem(tag, tag);
    refresh();
}

void AlarmEditor::show(const Alarm &alarm)
{
    Alarm before = m_alarm;
    before.info.state = alarm.info.state;
    before.info.timestamp = alarm.info.timestamp;
    before.info.tagValue = alarm.info.tagValue;
    m_alarm = alarm;
    const bool isShown = alarm.info == before.info && alarm.limit == before.limit;
    if (!isShown) // or else what is being typed would be lost
        refresh();
}

void AlarmEditor::refresh()
{
    const Alarm &alarm = m_alarm;
    const AlarmInfoData &info = alarm.info;
    const QSignalBlocker blocker(this); // nothing here is the user's work
    m_description->setText(info.description);
    m_description->setCursorPosition(0);
    m_severity->setCurrentIndex(info.severity);
    m_groups->setText(info.groups.join(QLatin1String(", ")));
    if (m_tag->findData(info.tagName) < 0)
        m_tag->addItem(info.tagName, info.tagName); // a tag that is gone
    m_tag->setCurrentIndex(m_tag->findData(info.tagName));
    m_limitKind->setCurrentIndex(alarm.limit.kind);
    m_limit->setValue(alarm.limit.limit);
    m_hysteresis->setValue(alarm.limit.hysteresis);
    m_acknowledge->setChecked(info.acknowledgeEnabled);
    m_reset->setChecked(info.resetEnabled);
    m_blink->setChecked(info.blinkEnabled);
    m_limit->setEnabled(alarm.limit.kind != AlarmLimit::None);
    m_hysteresis->setEnabled(alarm.limit.kind != AlarmLimit::None);
    showColors();
}

Alarm AlarmEditor::shown() const
{
    Alarm alarm = m_alarm;
    alarm.info.description = m_description->text();
    alarm.info.severity = AlarmInfo::Severity(m_severity->currentIndex());
    alarm.info.groups.clear();
    for (const QString &group : m_groups->text().split(QLatin1Char(','), Qt::SkipEmptyParts))
        alarm.info.groups.append(group.trimmed());
    alarm.info.tagName = m_tag->currentData().toString();
    alarm.limit = {AlarmLimit::Kind(m_limitKind->currentIndex()), m_limit->value(),
                   m_hysteresis->value()};
    alarm.info.acknowledgeEnabled = m_acknowledge->isChecked();
    alarm.info.resetEnabled = m_reset->isChecked();
    alarm.info.blinkEnabled = m_blink->isChecked();
    return alarm;
}

void AlarmEditor::edit()
{
    if (!signalsBlocked())
        Q_EMIT edited(shown());
}

} // namespace NARV::DEV
