#ifndef ZPPLUGIN_TESTS_FIELDSOURCE_H
#define ZPPLUGIN_TESTS_FIELDSOURCE_H

#include "properties/propertysource.h"

//! A widget with fields of all types, kept in memory.
class FieldSource : public NARV::DEV::PropertySource
{
    Q_OBJECT

public:
    //! Fields as JSON, in single quotes.
    explicit FieldSource(const QByteArray &fields);

    bool hasWidget() const override { return isSelected; }
    QString name() const override { return QStringLiteral("widget 1"); }
    const NARV::DEV::WidgetMetaInformation &description() const override { return m_widget; }
    QString missingReason() const override { return {}; }
    QString language() const override { return QStringLiteral("en-US"); }
    QStringList languages() const override { return {language(), QStringLiteral("it-IT")}; }

    QVariant value(const QString &id) const override;
    QVariant heldValue(const QString &id) const override;
    QVariant defaultValue(const QString &id) const override;
    bool isChanged(const QString &id) const override;
    QString binding(const QString &id) const override { return bindings.value(id); }
    NARV::DEV::Geometry geometry() const override { return place; }
    QVector<NARV::DEV::TagName> tags() const override { return tagNames; }
    QStringList trends() const override
    {
        return {QStringLiteral("history"), QStringLiteral("log")};
    }

    void setValue(const QString &id, const QVariant &value) override;
    void reset(const QString &id) override;
    void resetAll() override;
    void bind(const QString &id, const QString &name) override;
    void setGeometry(const NARV::DEV::Geometry &geometry) override;

    bool isSelected = true;
    QVariantMap values;
    QMap<QString, QString> bindings;
    QVector<NARV::DEV::TagName> tagNames;
    NARV::DEV::Geometry place{{10, 20}, {100, 50}, 0};
    int writes = 0;

private:
    NARV::DEV::WidgetMetaInformation m_widget;
};

#endif
