#pragma once

#include "properties/propertyeditor.h"

class QFileDialog;
class QLineEdit;

namespace NARV::DEV {

//! The path of an image file; no path is no image. The button opens the dialog of files.
class ImageEditor : public PropertyEditor
{
    Q_OBJECT

public:
    explicit ImageEditor(QWidget *parent);

    QVariant value() const override;
    void setValue(const QVariant &value) override;

private:
    void openDialog();

    QLineEdit *m_path;
    QFileDialog *m_dialog = nullptr;
};

} // namespace NARV::DEV
