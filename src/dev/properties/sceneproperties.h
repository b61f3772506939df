#pragma once

#include "properties/propertysource.h"
#include "scene/placedwidget.h"

#include <QSet>
#include <QTimer>

namespace NARV::DEV {

class SceneDocument;

//! The selected widgets of a page. Writes go over the undo stack of the page.
class ZPPLUGIN_DEV_EXPORT SceneProperties : public PropertySource
{
    Q_OBJECT

public:
    //! The document has to outlive this.
    explicit SceneProperties(SceneDocument &document, QObject *parent = nullptr);

    int widgetCount() const override { return m_widgets.size(); }
    QString name(int widget) const override;
    const WidgetMetaInformation &description(int widget) const override;
    QString missingReason(int widget) const override;
    QString language() const override;
    QStringList languages() const override;

    QVariant value(int widget, const QString &id) const override;
    QVariant heldValue(int widget, const QString &fieldId) const override;
    QVariant defaultValue(int widget, const QString &id) const override;
    bool isChanged(int widget, const QString &id) const override;
    QString binding(int widget, const QString &fieldId) const override;
    Geometry geometry(int widget) const override;
    QVector<TagName> tags() const override;
    QStringList trends() const override;
    bool isDriven(const QString &tag) const override;

    void setValues(const QString &id, const QVector<QVariant> &values) override;
    void bind(const QString &fieldId, const QStringList &names) override;
    void setGeometries(const QVector<Geometry> &geometries) override;
    void reset(const QStringList &ids) override;

private:
    void follow();
    void note(const QString &changedId);
    void noteReplaced();
    void tell();

    SceneDocument &m_document;
    QList<PlacedWidget *> m_widgets; //!< the one selected last comes first
    QSet<QString> m_changedIds;      //!< that nobody was told of yet
    bool m_isReplaced = false;
    QTimer m_timer;
};

} // namespace NARV::DEV
