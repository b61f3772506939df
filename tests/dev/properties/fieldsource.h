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

    int widgetCount() const override { return isSelected; }
    QString name(int) const override { return QStringLiteral("widget 1"); }
    const NARV::DEV::WidgetMetaInformation &description(int) const override { return m_widget; }
    QString missingReason(int) const override { return {}; }
    QString language() const override { return QStringLiteral("en-US"); }
    QStringList languages() const override { return {language(), QStringLiteral("it-IT")}; }

    QVariant value(int, const QString &id) const override;
    QVariant heldValue(int, const QString &id) const override;
    QVariant defaultValue(int, const QString &id) const override;
    bool isChanged(int, const QString &id) const override;
    QString binding(int, const QString &id) const override { return bindings.value(id); }
    NARV::DEV::Geometry geometry(int) const override { return place; }
    QVector<NARV::DEV::TagName> tags() const override { return tagNames; }
    QStringList trends() const override
    {
        return {QStringLiteral("history"), QStringLiteral("log")};
    }

    void setValues(const QString &id, const QVector<QVariant> &values) override;
    void bind(const QString &id, const QStringList &names) override;
    void setGeometries(const QVector<NARV::DEV::Geometry> &geometries) override;
    void reset(const QStringList &ids) override;

    void write(const QString &id, const QVariant &value) { setValues(id, {value}); }

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
