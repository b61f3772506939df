#pragma once

#include "properties/propertyeditor.h"

#include <QFont>

class QComboBox;
class QSpinBox;
class QToolButton;

namespace NARV::DEV {

//! A font: family, and below it size, bold, italic and underline.
class FontEditor : public PropertyEditor
{
    Q_OBJECT

public:
    explicit FontEditor(QWidget *parent);

    QVariant value() const override;
    void setValue(const QVariant &value) override;

private:
    QToolButton *addFlag(const QString &letter, const QString &name, void (QFont::*setter)(bool));

    QFont m_font;
    QComboBox *m_family;
    QSpinBox *m_size;
    QToolButton *m_bold;
    QToolButton *m_italic;
    QToolButton *m_underline;
};

} // namespace NARV::DEV
