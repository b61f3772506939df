#include "properties/optioneditor.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QVBoxLayout>

#include <functional>

namespace NARV::DEV {

//! Tells when its list is closed.
class OptionEditor::Box : public QComboBox
{
public:
    using QComboBox::QComboBox;

    void hidePopup() override
    {
        const bool wasOpen = view()->isVisible();
        QComboBox::hidePopup();
        if (wasOpen && onClosed)
            onClosed();
    }

    std::function<void()> onClosed;
};

OptionEditor::OptionEditor(QWidget *parent)
    : PropertyEditor(parent)
    , m_box(new Box(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_box);
    m_box->setAccessibleName(tr("Choice"));
    m_box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_box->setMinimumContentsLength(1);
    setFocusProxy(m_box);
    connect(m_box, QOverload<int>::of(&QComboBox::activated), this, &OptionEditor::take);
}

void OptionEditor::setKind(const ValueKind &kind)
{
    m_box->clear();
    for (const Choice &choice : kind.choices)
        m_box->addItem(choice.text, choice.value);
}

QVariant OptionEditor::value() const
{
    return m_box->currentData();
}

void OptionEditor::setValue(const QVariant &value)
{
    int position = m_box->findData(value);
    if (position < 0) {
        m_box->addItem(value.toString(), value);
        position = m_box->count() - 1;
    }
    m_box->setCurrentIndex(position);
    setModified(false);
}

// The list is all that there is to it: when it closes, the editor does. What was chosen in it is
// told only after it has closed.
void OptionEditor::showChoices()
{
    m_box->onClosed = [this] {
        QMetaObject::invokeMethod(
            this, [this] { finish(Next::Stay); }, Qt::QueuedConnection);
    };
    m_box->showPopup();
}

} // namespace NARV::DEV
