#pragma once

#include "properties/valuekind.h"

#include <QWidget>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! An editor of one value, as it stands in a line of the property tree; may be larger than that.
class ZPPLUGIN_DEV_EXPORT PropertyEditor : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ value WRITE setValue USER true)

public:
    enum class Next
    {
        Stay,      //!< on the line that was edited
        Following, //!< edit the next line
        Preceding
    };

    explicit PropertyEditor(QWidget *parent);
    ~PropertyEditor() override;

    //! Called before the first value.
    virtual void setKind(const ValueKind &) {}
    virtual QVariant value() const = 0;
    //! Shows a value; does not make the editor modified.
    virtual void setValue(const QVariant &value) = 0;
    //! Opens the list of choices, of an editor that has one to open.
    virtual void showChoices() {}
    //! Why what was typed cannot be taken, in words; empty if it can.
    virtual QString problem() const { return {}; }

    //! A person has changed the value since setValue().
    bool isModified() const { return m_isModified; }
    void setModified(bool modified) { m_isModified = modified; }

Q_SIGNALS:
    //! The value is to be taken; editing goes on.
    void edited();
    //! The person is through with it.
    void finished(NARV::DEV::PropertyEditor::Next next);
    //! The value from before is to be restored.
    void cancelled();

protected:
    //! For choices that take effect at once.
    void take();
    void finish(Next next);

    bool event(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void watchFocus(QWidget *old, QWidget *now);
    QWidgetList tabStops() const;

    bool m_isModified = false;
};

} // namespace NARV::DEV
