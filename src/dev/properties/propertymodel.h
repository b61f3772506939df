#pragma once

#include "properties/propertytree.h"

#include <QAbstractItemModel>

#include <functional>

namespace NARV::DEV {

//! The fields of the widgets as a tree: groups, fields, and the parts of fields that have any.
class ZPPLUGIN_DEV_EXPORT PropertyModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        ValueColumn,
        TagColumn, //!< what is bound to the field
        ColumnCount
    };
    enum Role
    {
        KindRole = Qt::UserRole, //!< ValueKind of what EditRole holds
        IdRole,                  //!< the id of the value that the row shows or is a part of
        PathRole,                //!< names of the row and its parents, the same for other widgets
        HiddenRole,              //!< the requirements are not met
        ReasonRole,              //!< why they are not, in words
        ChangedRole,             //!< differs from the default
        BindingRole,             //!< the tag or trend bound to the field
        BindableRole,            //!< a tag or trend can be bound
        GroupRole,               //!< the row is one of a group
        EntryRole,               //!< the row is an entry of a list or map
        EntriesRole,             //!< the row has such entries, or is one
        DifferentRole,           //!< the widgets differ in it; EditRole has that of the current one
        ValuesRole               //!< that of each widget, to be written back as it was
    };

    //! The source has to outlive the model.
    explicit PropertyModel(PropertySource &source, QObject *parent = nullptr);

    PropertySource &source() { return m_source; }
    bool showPrivate() const { return m_showPrivate; }
    void setShowPrivate(bool show);
    //! Shows and hides rows as the requirements of their fields ask. The model does so itself when
    //! a value has changed; to be called by those who change what it does not hear of.
    void updateRequirements();
    //! Why the rows of the field are hidden; empty if they are not.
    QString reason(const QString &fieldId) const;

    //! The row of a field, of a font or of the geometry.
    QModelIndex indexOf(const QString &valueId, int column = ValueColumn) const;
    //! Gives the row, or the part that it shows, its default.
    void reset(const QModelIndex &index);
    //! All fields, also those without a row.
    void resetAll();
    // Of the list or map that the row is or belongs to. An entry is added behind that of the row.
    void addEntry(const QModelIndex &index);
    void removeEntry(const QModelIndex &index);
    void moveEntry(const QModelIndex &index, int by);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QModelIndex buddy(const QModelIndex &index) const override;

Q_SIGNALS:
    //! Something about an edit that the person has to know, such as a value set to a bound.
    void notice(const QString &text);

private:
    PropertyItem &item(const QModelIndex &index) const;
    QModelIndex indexOf(const PropertyItem &item, int column) const;
    void rebuild();
    void update(const QString &valueId);
    void updateParts(PropertyItem &item);
    void resizeParts(PropertyItem &item, int count);

    QVariant rowData(const PropertyItem &item, int role) const;
    QVariant valueData(const PropertyItem &item, int role) const;
    QVariant tagData(const PropertyItem &item, int role) const;
    QVariant nameData(const PropertyItem &item, int role) const;
    QString toolTip(const PropertyItem &item) const;
    QString path(const PropertyItem &item) const;
    bool isEntry(const PropertyItem &item) const;
    bool isMapEntry(const PropertyItem &item) const;
    bool isEditable(const PropertyItem &item, int column) const;
    const PropertyItem *entriesItem(const QModelIndex &index) const;

    QVariant values(const PropertyItem &item, int column) const;
    bool setValues(const PropertyItem &item, int column, const QVariantList &values);
    bool setEdited(const PropertyItem &item, const QVariant &edited);
    bool setKey(const PropertyItem &item, int key);
    void bind(const PropertyItem &item, const QString &name);
    //! What becomes of the value in one of the widgets.
    using Change = std::function<QVariant(const QVariant &before, int widget)>;
    void write(const PropertyItem &item, const Change &change);
    void write(const PropertyItem &item, const QVariant &value);
    QVariant checked(const PropertyItem &item, const QVariant &value, int widget) const;
    void tellOfBound(const ValueKind &kind, const QVariant &value, const QVariant &taken);
    void tellOfDriver(const PropertyItem &item);

    PropertySource &m_source;
    PropertyTree m_tree;
    bool m_showPrivate = false;
};

} // namespace NARV::DEV
