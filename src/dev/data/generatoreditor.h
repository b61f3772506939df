#pragma once

#include "data/generator.h"

#include <QVector>
#include <QWidget>

#include <functional>

class QFormLayout;
class QLabel;

namespace NARV::DEV {

//! Edits where a tag's values come from: the kind and what that kind uses.
class GeneratorEditor : public QWidget
{
    Q_OBJECT

public:
    explicit GeneratorEditor(QWidget *parent = nullptr);
    ~GeneratorEditor() override;

    void show(TagType type, const GeneratorSettings &settings);

Q_SIGNALS:
    //! By the user.
    void edited(const NARV::DEV::GeneratorSettings &settings);

private:
    using IsUsed = bool (*)(const GeneratorSettings &settings, TagType type);
    struct Row
    {
        QLabel *label; // null for none
        QWidget *editor;
        IsUsed isUsed;
        std::function<void()> show;
    };

    //! Tells of the settings after change(settings).
    void edit(const std::function<void(GeneratorSettings &settings)> &change);
    //! The editor is there while isUsed() says so; show() puts the settings into it.
    void addRow(const QString &name, const QString &label, QWidget *editor, IsUsed isUsed,
                const std::function<void()> &show);
    void placeRows();
    void addKind();
    void addNumber(const QString &name, const QString &label, double GeneratorSettings::*member,
                   IsUsed isUsed);
    void addWhole(const QString &name, const QString &label, int GeneratorSettings::*member,
                  int minimum, int maximum, IsUsed isUsed);
    void addConstant();
    void addTexts();
    void addFile();
    void addQuality();
    void browse();

    QFormLayout *m_form;
    QLabel *m_description;
    QVector<Row> m_rows;
    GeneratorSettings m_settings;
    GeneratorSettings m_shown;
    TagType m_shownType;
    bool m_isShown = false;
    QVector<QWidget *> m_placed;
};

} // namespace NARV::DEV
