#pragma once

#include "properties/propertyeditor.h"

class QPlainTextEdit;

namespace NARV::DEV {

//! Base of the editors of texts, which grow with the number of lines.
class LinesEditor : public PropertyEditor
{
    Q_OBJECT

public:
    enum class Enter
    {
        Finishes,   //!< Shift+Enter begins a new line
        BeginsALine //!< Ctrl+Enter finishes
    };

    LinesEditor(Enter enter, QWidget *parent);

    QVariant value() const override { return read(text()); }
    void setValue(const QVariant &value) override;

protected:
    virtual QVariant read(const QString &text) const = 0;
    virtual QString write(const QVariant &value) const = 0;
    QString text() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isFinishing(const QKeyEvent &event) const;
    void grow();

    const Enter m_enter;
    QPlainTextEdit *m_edit;
};

} // namespace NARV::DEV
