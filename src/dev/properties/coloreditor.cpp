#include "properties/coloreditor.h"

#include "properties/valuetexts.h"

#include <QColor>
#include <QColorDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPixmap>
#include <QToolButton>

namespace NARV::DEV {

ColorEditor::ColorEditor(QWidget *parent)
    : PropertyEditor(parent)
    , m_text(new QLineEdit(this))
    , m_button(new QToolButton(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_text);
    layout->addWidget(m_button);
    m_text->setFrame(false);
    m_text->setMinimumWidth(0);
    m_text->setAccessibleName(tr("Colour as #AARRGGBB or by name"));
    m_button->setFocusPolicy(Qt::StrongFocus);
    m_button->setAccessibleName(tr("Pick a colour"));
    m_button->setToolTip(m_button->accessibleName());
    setFocusProxy(m_text);
    connect(m_text, &QLineEdit::textEdited, this, [this] { setModified(true); });
    connect(m_text, &QLineEdit::textChanged, m_button, [this] {
        m_button->setIcon(
            valueDecoration(value(), {FieldType::Color, {}, {}, {}}).value<QPixmap>());
    });
    connect(m_button, &QToolButton::clicked, this, &ColorEditor::openDialog);
}

// The toolkit warns of names that it does not know.
QVariant ColorEditor::value() const
{
    const QString name = m_text->text().trimmed();
    return QColor::isValidColor(name) ? QColor(name) : QColor();
}

void ColorEditor::setValue(const QVariant &value)
{
    const auto color = value.value<QColor>();
    m_text->setText(color.isValid() ? color.name(QColor::HexArgb).toUpper() : QString());
    m_text->selectAll();
    setModified(false);
}

QString ColorEditor::problem() const
{
    return value().value<QColor>().isValid()
               ? QString()
               : tr("\"%1\" is no colour: write #AARRGGBB, #RRGGBB or a name.").arg(m_text->text());
}

void ColorEditor::openDialog()
{
    if (!m_dialog) {
        m_dialog = new QColorDialog(this);
        m_dialog->setWindowTitle(tr("Colour"));
        m_dialog->setOption(QColorDialog::ShowAlphaChannel);
        m_dialog->setModal(false);
        connect(m_dialog, &QColorDialog::currentColorChanged, this, [this](const QColor &color) {
            if (color == value().value<QColor>())
                return;
            setValue(color);
            take();
        });
    }
    m_dialog->setCurrentColor(value().value<QColor>());
    m_dialog->show();
}

} // namespace NARV::DEV
