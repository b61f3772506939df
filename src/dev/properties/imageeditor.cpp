#include "properties/imageeditor.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLineEdit>
#include <QToolButton>

namespace NARV::DEV {

ImageEditor::ImageEditor(QWidget *parent)
    : PropertyEditor(parent)
    , m_path(new QLineEdit(this))
{
    auto *button = new QToolButton(this);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_path);
    layout->addWidget(button);
    m_path->setFrame(false);
    m_path->setMinimumWidth(0);
    m_path->setPlaceholderText(tr("No image"));
    m_path->setAccessibleName(tr("Path of the image file"));
    button->setText(QStringLiteral("…"));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(tr("Choose a file"));
    button->setToolTip(button->accessibleName());
    setFocusProxy(m_path);
    connect(m_path, &QLineEdit::textEdited, this, [this] { setModified(true); });
    connect(button, &QToolButton::clicked, this, &ImageEditor::openDialog);
}

QVariant ImageEditor::value() const
{
    return m_path->text().isEmpty() ? QVariant() : m_path->text();
}

void ImageEditor::setValue(const QVariant &value)
{
    m_path->setText(value.toString());
    m_path->selectAll();
    setModified(false);
}

static QStringList imagePatterns()
{
    QStringList patterns;
    for (const QByteArray &format : QImageReader::supportedImageFormats())
        patterns += QStringLiteral("*.") + QString::fromLatin1(format);
    return patterns;
}

void ImageEditor::openDialog()
{
    if (!m_dialog) {
        m_dialog = new QFileDialog(this, tr("Choose an image"));
        m_dialog->setFileMode(QFileDialog::ExistingFile);
        m_dialog->setModal(false);
        m_dialog->setNameFilters(
            {tr("Images (%1)").arg(imagePatterns().join(QLatin1Char(' '))), tr("All files (*)")});
        connect(m_dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
            setValue(path);
            take();
        });
    }
    if (!m_path->text().isEmpty())
        m_dialog->setDirectory(QFileInfo(m_path->text()).path());
    m_dialog->show();
}

} // namespace NARV::DEV
