#pragma once

#include "properties/propertyeditor.h"

class QCheckBox;

namespace NARV::DEV {

class BoolEditor : public PropertyEditor
{
    Q_OBJECT

public:
    explicit BoolEditor(QWidget *parent);

    QVariant value() const override;
    void setValue(const QVariant &value) override;

private:
    QCheckBox *m_box;
};

} // namespace NARV::DEV
