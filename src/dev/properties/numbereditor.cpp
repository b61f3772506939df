#include "properties/numbereditor.h"

#include "properties/valuetexts.h"

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <QVBoxLayout>

namespace NARV::DEV {

//! The frame and keys of a spin box. Any text may be typed: what is wrong is said, not swallowed.
class NumberBox : public QAbstractSpinBox
{
    Q_OBJECT

public:
    using QAbstractSpinBox::lineEdit;
    using QAbstractSpinBox::QAbstractSpinBox;

    void stepBy(int steps) override { Q_EMIT stepped(steps); }

Q_SIGNALS:
    void stepped(int steps);

protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
};

NumberEditor::NumberEditor(QWidget *parent)
    : PropertyEditor(parent)
    , m_box(new NumberBox(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_box);
    m_box->setFrame(false);
    m_box->setAccessibleName(tr("Number"));
    m_box->setMinimumWidth(0);
    setFocusProxy(m_box);
    connect(m_box, &NumberBox::stepped, this, &NumberEditor::step);
    connect(m_box->lineEdit(), &QLineEdit::textEdited, this, [this] { setModified(true); });
}

// A comma is a decimal point, too.
QVariant NumberEditor::read(const QString &text) const
{
    bool isNumber = false;
    if (m_kind.type == FieldType::Integer) {
        const int integer = text.toInt(&isNumber);
        return isNumber ? integer : QVariant();
    }
    const double number =
        QString(text).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    return isNumber ? number : QVariant();
}

QVariant NumberEditor::value() const
{
    return read(m_box->lineEdit()->text().trimmed());
}

void NumberEditor::setValue(const QVariant &value)
{
    m_box->lineEdit()->setText(valueText(value, m_kind));
    m_box->selectAll();
    setModified(false);
}

QString NumberEditor::problem() const
{
    if (value().isValid())
        return {};
    const QString text = m_box->lineEdit()->text();
    return m_kind.type == FieldType::Integer
               ? tr("\"%1\" is not a whole number of at most 32 bits.").arg(text)
               : tr("\"%1\" is not a number.").arg(text);
}

void NumberEditor::step(int steps)
{
    double number = value().toDouble() + steps;
    if (m_kind.minimum.isValid())
        number = qMax(number, m_kind.minimum.toDouble());
    if (m_kind.maximum.isValid())
        number = qMin(number, m_kind.maximum.toDouble());
    const bool isInteger = m_kind.type == FieldType::Integer;
    const QString next = isInteger ? QString::number(number, 'f', 0) : numberText(number);
    if (!read(next).isValid()) // beyond the range of int
        return;
    m_box->lineEdit()->setText(next);
    m_box->selectAll();
    take();
}

} // namespace NARV::DEV

#include "numbereditor.moc"
