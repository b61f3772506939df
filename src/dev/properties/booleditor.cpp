#include "properties/booleditor.h"

#include <QCheckBox>
#include <QHBoxLayout>

namespace NARV::DEV {

BoolEditor::BoolEditor(QWidget *parent)
    : PropertyEditor(parent)
    , m_box(new QCheckBox(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(3, 0, 0, 0);
    layout->addWidget(m_box);
    m_box->setAccessibleName(tr("On or off"));
    setFocusProxy(m_box);
    connect(m_box, &QCheckBox::clicked, this, &BoolEditor::take);
    connect(m_box, &QCheckBox::toggled, m_box, [this](bool on) {
        m_box->setText(on ? QStringLiteral("true") : QStringLiteral("false"));
    });
}

QVariant BoolEditor::value() const
{
    return m_box->isChecked();
}

void BoolEditor::setValue(const QVariant &value)
{
    m_box->setChecked(value.toBool());
    setModified(false);
}

} // namespace NARV::DEV
