#pragma once

#include "data/alarmtable.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLineEdit;
class QToolButton;

namespace NARV::DEV {

//! Edits what an alarm is: texts, cause, what an operator may do, colours by state.
class AlarmEditor : public QWidget
{
    Q_OBJECT

public:
    explicit AlarmEditor(QWidget *parent = nullptr);
    ~AlarmEditor() override;

    void show(const Alarm &alarm);
    void setTags(const QStringList &tags);

Q_SIGNALS:
    //! By the user.
    void edited(const NARV::DEV::Alarm &alarm);

private:
    QLineEdit *addLine(const QString &name, const QString &label);
    QComboBox *addChoice(const QString &name, const QString &label, const QStringList &choices);
    QDoubleSpinBox *addNumber(const QString &name, const QString &label);
    QCheckBox *addFlag(const QString &name, const QString &label);
    void addColors();
    QToolButton *newColorButton(const QString &name, const QString &label,
                                QMap<AlarmInfo::State, QColor> AlarmInfoData::*colors);
    void chooseColor(QMap<AlarmInfo::State, QColor> AlarmInfoData::*colors);
    void setColor(QMap<AlarmInfo::State, QColor> AlarmInfoData::*colors, const QColor &color);
    void refresh();
    void showColors();
    void place(QWidget *editor, const QString &name, const QString &label);
    void edit();
    Alarm shown() const;

    QFormLayout *m_form;
    Alarm m_alarm;
    QLineEdit *m_description;
    QComboBox *m_severity;
    QLineEdit *m_groups;
    QComboBox *m_tag;
    QComboBox *m_limitKind;
    QDoubleSpinBox *m_limit;
    QDoubleSpinBox *m_hysteresis;
    QCheckBox *m_acknowledge;
    QCheckBox *m_reset;
    QCheckBox *m_blink;
    QComboBox *m_state = nullptr; // whose colours are shown
    QToolButton *m_background = nullptr;
    QToolButton *m_foreground = nullptr;
};

} // namespace NARV::DEV
