#pragma once

#include "properties/propertysource.h"
#include "scene/placedwidget.h"

#include <QPointer>

namespace NARV::DEV {

class SceneDocument;

//! The current widget of a page. Writes go over the undo stack of the page.
class ZPPLUGIN_DEV_EXPORT SceneProperties : public PropertySource
{
    Q_OBJECT

public:
    //! The document has to outlive this.
    explicit SceneProperties(SceneDocument &document, QObject *parent = nullptr);

    bool hasWidget() const override { return m_widget; }
    QString name() const override;
    const WidgetMetaInformation &description() const override;
    QString missingReason() const override;
    QString language() const override;
    QStringList languages() const override;

    QVariant value(const QString &id) const override;
    QVariant heldValue(const QString &fieldId) const override;
    QVariant defaultValue(const QString &id) const override;
    bool isChanged(const QString &id) const override;
    QString binding(const QString &fieldId) const override;
    Geometry geometry() const override;
    QVector<TagName> tags() const override;
    QStringList trends() const override;
    bool isDriven(const QString &tag) const override;

    void setValue(const QString &id, const QVariant &value) override;
    void reset(const QString &id) override;
    void resetAll() override;
    void bind(const QString &fieldId, const QString &name) override;
    void setGeometry(const Geometry &geometry) override;

private:
    void follow(PlacedWidget *widget);

    SceneDocument &m_document;
    QPointer<PlacedWidget> m_widget;
};

} // namespace NARV::DEV
