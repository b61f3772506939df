#pragma once

#include "palette/widgeticons.h"

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QStandardItemModel>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! The widgets of the open library as a tree: the galleries of pages and of the project, their
//! groups, the widgets in their latest version, and below them their older versions.
class ZPPLUGIN_DEV_EXPORT PaletteModel : public QStandardItemModel
{
    Q_OBJECT

public:
    enum Role
    {
        IdRole = Qt::UserRole, //!< the widget's id; invalid for galleries and groups
        VersionRole,
        WordsRole //!< all that a person may look for
    };
    enum Column
    {
        NameColumn,
        VersionColumn
    };

    explicit PaletteModel(PluginSession &session, QObject *parent = nullptr);

    //! The language of names and descriptions; the library's own if it is empty.
    void setLanguage(const QString &code);

    QVariant data(const QModelIndex &index, int role) const override;
    QStringList mimeTypes() const override;
    //! What PageView takes, of the first of the widgets.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;

private:
    using Library = INTERNAL::WidgetLibraryPluginMetaInformation;
    using Description = Library::WidgetMetaInformation;
    using Text = Library::TranslationStringType;

    //! One of the two galleries, as the library describes it.
    struct Gallery
    {
        const char *name;
        bool (Description::*isShown)() const;
        const QList<Text> &(Library::*groups)() const;
    };

    static const Gallery galleries[];

    void build();
    void addGallery(const Gallery &gallery);
    void addGroup(QStandardItem *branch, const Gallery &gallery, const Text &group);
    QList<QStandardItem *> widgetRow(const Description &widget, const QString &group) const;
    void addOlderVersions(QStandardItem *parent, const Description &latest, const QString &group);
    QString inLanguage(const Text &text) const;
    QString toolTip(const Description &widget) const;
    void showIcon(const WidgetIcons::Key &key, const QModelIndex &parent);

    PluginSession &m_session;
    WidgetIcons *m_icons;
    QString m_language;
};

} // namespace NARV::DEV
