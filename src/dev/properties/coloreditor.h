#pragma once

#include "properties/propertyeditor.h"

class QColorDialog;
class QLineEdit;
class QToolButton;

namespace NARV::DEV {

//! A colour as #AARRGGBB, #RRGGBB or by name; the button opens the dialog of colours.
class ColorEditor : public PropertyEditor
{
    Q_OBJECT

public:
    explicit ColorEditor(QWidget *parent);

    QVariant value() const override;
    void setValue(const QVariant &value) override;
    QString problem() const override;

private:
    void openDialog();

    QLineEdit *m_text;
    QToolButton *m_button;
    QColorDialog *m_dialog = nullptr;
};

} // namespace NARV::DEV
