#include "properties/fonteditor.h"

#include "properties/valueparts.h"

#include <QComboBox>
#include <QGridLayout>
#include <QSpinBox>
#include <QToolButton>

#include <limits>

namespace NARV::DEV {

FontEditor::FontEditor(QWidget *parent)
    : PropertyEditor(parent)
    , m_family(new QComboBox(this))
    , m_size(new QSpinBox(this))
    , m_bold(addFlag(tr("B", "bold"), tr("Bold"), &QFont::setBold))
    , m_italic(addFlag(tr("I", "italic"), tr("Italic"), &QFont::setItalic))
    , m_underline(addFlag(tr("U", "underline"), tr("Underline"), &QFont::setUnderline))
{
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->addWidget(m_family, 0, 0, 1, 4);
    layout->addWidget(m_size, 1, 0);
    layout->addWidget(m_bold, 1, 1);
    layout->addWidget(m_italic, 1, 2);
    layout->addWidget(m_underline, 1, 3);
    layout->setColumnStretch(0, 1);
    m_family->setAccessibleName(tr("Font family"));
    m_family->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_family->setMinimumContentsLength(1);
    m_family->addItems(fontFamilies());
    m_size->setAccessibleName(tr("Font size in points"));
    m_size->setRange(1, std::numeric_limits<short>::max());
    setFocusProxy(m_family);
    connect(m_family, QOverload<int>::of(&QComboBox::activated), this, &FontEditor::take);
    connect(m_size, QOverload<int>::of(&QSpinBox::valueChanged), this, &FontEditor::take);
}

QToolButton *FontEditor::addFlag(const QString &letter, const QString &name,
                                 void (QFont::*setter)(bool))
{
    auto *button = new QToolButton(this);
    QFont look = button->font();
    (look.*setter)(true);
    button->setFont(look);
    button->setText(letter);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(name);
    button->setToolTip(name);
    connect(button, &QToolButton::clicked, this, &FontEditor::take);
    return button;
}

QVariant FontEditor::value() const
{
    QFont font = m_font; // what there is no control for stays
    font.setFamily(m_family->currentText());
    font.setPointSize(m_size->value());
    font.setBold(m_bold->isChecked());
    font.setItalic(m_italic->isChecked());
    font.setUnderline(m_underline->isChecked());
    return font;
}

void FontEditor::setValue(const QVariant &value)
{
    const QSignalBlocker blocker(m_size);
    m_font = value.value<QFont>();
    if (m_family->findText(m_font.family()) < 0)
        m_family->addItem(m_font.family());
    m_family->setCurrentText(m_font.family());
    m_size->setValue(m_font.pointSize());
    m_bold->setChecked(m_font.bold());
    m_italic->setChecked(m_font.italic());
    m_underline->setChecked(m_font.underline());
    setModified(false);
}

} // namespace NARV::DEV
