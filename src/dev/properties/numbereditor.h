#pragma once

#include "properties/propertyeditor.h"

namespace NARV::DEV {

class NumberBox;

//! An integer or a double: typed, or stepped by arrow keys and wheel within the bounds.
class NumberEditor : public PropertyEditor
{
    Q_OBJECT

public:
    explicit NumberEditor(QWidget *parent);

    void setSpec(const ValueSpec &spec) override { m_spec = spec; }
    //! Invalid if the text is no such number.
    QVariant value() const override;
    void setValue(const QVariant &value) override;
    QString problem() const override;

private:
    QVariant read(const QString &text) const;
    void step(int steps);

    ValueSpec m_spec;
    NumberBox *m_box;
};

} // namespace NARV::DEV
