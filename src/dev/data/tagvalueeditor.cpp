#include "data/tagvalueeditor.h"

#include "data/wheelguard.h"
#include "window/icons.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace NARV::DEV {

static constexpr int finest = 1000; // positions of the slider

TagValueEditor::TagValueEditor(QWidget *parent)
    : QWidget(parent)
    , m_slider(new QSlider(Qt::Horizontal))
    , m_switch(new QCheckBox(tr("&On")))
    , m_line(new QLineEdit)
    , m_none(new QToolButton)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(4);
    auto *bottom = new QHBoxLayout;
    layout->addWidget(m_slider);
    layout->addWidget(m_switch);
    layout->addLayout(bottom);
    bottom->addWidget(m_line, 1);
    bottom->addWidget(m_none);
    new WheelGuard(m_slider);
    m_slider->setObjectName(QStringLiteral("tagSlider"));
    m_slider->setAccessibleName(tr("Move the tag"));
    m_slider->setRange(0, finest);
    m_slider->setPageStep(finest / 10);
    m_slider->setSingleStep(finest / 100);
    m_switch->setObjectName(QStringLiteral("tagSwitch"));
    m_line->setObjectName(QStringLiteral("tagValue"));
    m_line->setAccessibleName(tr("Value of the tag"));
    m_line->setPlaceholderText(tr("(none)"));
    m_none->setObjectName(QStringLiteral("tagNone"));
    m_none->setIcon(benchIcon(QStringLiteral("clear")));
    m_none->setAccessibleName(tr("No value"));
    m_none->setToolTip(tr("No value"));
    m_none->setFocusPolicy(Qt::StrongFocus);
    connect(m_slider, &QSlider::valueChanged, this, &TagValueEditor::slide);
    connect(m_switch, &QCheckBox::toggled, this, [this](bool isOn) { Q_EMIT edited(isOn); });
    connect(m_none, &QToolButton::clicked, this, [this] { Q_EMIT edited({}); });
    connect(m_line, &QLineEdit::editingFinished, this, [this] {
        if (!m_line->isModified())
            return;
        m_line->setModified(false);
        Q_EMIT edited(m_line->text());
    });
}

TagValueEditor::~TagValueEditor() = default;

void TagValueEditor::show(const Tag &tag, const QVariant &value)
{
    const bool isBool = tag.type == TagType::Bool;
    const TagRange range = tagRange(tag.type);
    m_minimum = qMax(tag.generator.minimum, range.minimum);
    m_maximum = qMin(tag.generator.maximum, range.maximum);
    m_isWhole = range.isWhole;
    const bool isNumber = !isBool && !isArrayType(tag.type) && tag.type != TagType::String;
    m_slider->setVisible(isNumber && m_minimum < m_maximum);
    m_switch->setVisible(isBool);
    const QSignalBlocker blocker(m_switch);
    m_switch->setChecked(isBool && value.toBool());
    if (!m_slider->isSliderDown())
        showSlider(value.toDouble());
    const bool isReal = tagRange(tag.type).maximum > 0 && !m_isWhole;
    const QString text =
        isReal && !isArrayType(tag.type) ? shortTagValueText(value) : tagValueText(value);
    const bool isTyping = m_line->hasFocus() && m_line->isModified();
    if (!isTyping && m_line->text() != text)
        m_line->setText(text);
}

void TagValueEditor::showSlider(double value)
{
    const double level = (value - m_minimum) / (m_maximum - m_minimum);
    const QSignalBlocker blocker(m_slider);
    if (std::isfinite(level))
        m_slider->setValue(qRound(qBound(0.0, level, 1.0) * finest));
}

void TagValueEditor::slide(int position)
{
    const double level = double(position) / finest;
    const double value = m_minimum * (1 - level) + m_maximum * level;
    Q_EMIT edited(m_isWhole ? std::round(value) : value);
}

} // namespace NARV::DEV
