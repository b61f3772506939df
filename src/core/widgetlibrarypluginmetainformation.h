#pragma once

#include <NARV/INTERNAL/PluginMetaInformation>

#include <QFont>
#include <QPair>
#include <QSharedDataPointer>
#include <QSizeF>
#include <QVariant>
#include <QVector>

namespace NARV::INTERNAL {

class FieldMetaInformationData;
class WidgetMetaInformationData;

//! The description of a widget library: every widget in every version, with its fields.
//!
//! A plain value, filled once by the metadata reader and only read from then on.
class ZPPLUGIN_EXPORT WidgetLibraryPluginMetaInformation : public PluginMetaInformation
{
public:
    //! The type of a field, with the type of the value that a field of it holds. Converts to and
    //! from int.
    class FieldType
    {
    public:
        enum Value : int
        {
            Undefined = 0,  //!< no type, also any unknown name; no value
            String = 1,     //!< one text: QString
            StringList = 2, //!< texts in order: QStringList
            StringMap = 3,  //!< texts by number: QMap<int, QString>
            Integer = 4,    //!< int
            Double = 5,     //!< double
            Bool = 6,       //!< bool
            Option = 7,     //!< the index of one of the field's options: int
            Color = 8,      //!< QColor
            Font = 9,       //!< QFont
            Image = 10,     //!< whatever converts to QString; an invalid QVariant for no image
            Tag = 11,       //!< a tag of the host; no value of its own
            Trend = 12      //!< a trend of the host; no value of its own
        };
        constexpr FieldType(int value = Undefined)
            : m_value(value)
        {
        }
        constexpr operator int() const { return m_value; }

    private:
        int m_value;
    };

    //! The data type of a tag. Converts to and from int.
    class TagType
    {
    public:
        enum Value : int
        {
            Unknown = 0, //!< no type, also any unknown name
            Bool = 1,
            Byte = 2,
            Short = 3,
            Int = 4,
            UByte = 5,
            UShort = 6,
            UInt = 7,
            UInt64 = 8,
            Int64 = 9,
            Float = 10,
            Double = 11,
            String = 12,
            ArrayBool = 13,
            ArrayByte = 14,
            ArrayShort = 15,
            ArrayInt = 16,
            ArrayUByte = 17,
            ArrayUShort = 18,
            ArrayUInt = 19,
            ArrayUInt64 = 20,
            ArrayInt64 = 21,
            ArrayFloat = 22,
            ArrayDouble = 23
        };
        constexpr TagType(int value = Unknown)
            : m_value(value)
        {
        }
        constexpr operator int() const { return m_value; }

    private:
        int m_value;
    };

    //! What the host may do with one entry of a widget's values, and of which type its value is.
    class ZPPLUGIN_EXPORT FieldInfo
    {
    public:
        //! Nothing allowed, undefined type.
        FieldInfo() = default;
        FieldInfo(bool setFieldValueIsEnabled, bool getFieldValueIsEnabled,
                  bool isAdditionalInformation, FieldType fieldType, QMetaType::Type metaType);

        //! The value may be set.
        bool setFieldValueIsEnabled() const { return m_setFieldValueIsEnabled; }
        //! The value may be read.
        bool getFieldValueIsEnabled() const { return m_getFieldValueIsEnabled; }
        //! The entry is no field but belongs to one, such as the font of a multi-language text
        //! (the key is the field's id followed by ".font").
        bool isAdditionalInformation() const { return m_isAdditionalInformation; }
        //! The type of the field itself.
        FieldType fieldType() const { return m_fieldType; }
        //! The type of the value of additional information; QMetaType::UnknownType otherwise.
        QMetaType::Type metaType() const { return m_metaType; }

        //! Converts value in place to the type of the entry and says whether that worked.
        bool convertToFieldType(QVariant &value) const;

        bool operator==(const FieldInfo &other) const;
        bool operator!=(const FieldInfo &other) const { return !(*this == other); }

    private:
        bool m_setFieldValueIsEnabled = false;
        bool m_getFieldValueIsEnabled = false;
        bool m_isAdditionalInformation = false;
        FieldType m_fieldType = FieldType::Undefined;
        QMetaType::Type m_metaType = QMetaType::UnknownType;
    };

    //! The description of one field of a widget. Copies share their data.
    class ZPPLUGIN_EXPORT FieldMetaInformation
    {
    public:
        //! An invalid description: empty texts, undefined type, no value.
        FieldMetaInformation();
        FieldMetaInformation(const QString &id, const TranslationStringType &display,
                             const TranslationStringType &description, FieldType type,
                             bool tagCanBeAttached, const QVariant &defaultValue, bool readOnly,
                             const TranslationStringType &group, bool isPrivate,
                             const QString &requirements, bool isMultiLanguage);
        FieldMetaInformation(const FieldMetaInformation &other);
        FieldMetaInformation(FieldMetaInformation &&other) noexcept;
        FieldMetaInformation &operator=(const FieldMetaInformation &other);
        FieldMetaInformation &operator=(FieldMetaInformation &&other) noexcept;
        ~FieldMetaInformation();

        //! False only for a default-constructed description.
        bool isValid() const;
        const QString &id() const;
        //! The label that the editor shows.
        const TranslationStringType &display() const;
        const TranslationStringType &description() const;
        FieldType type() const;
        //! A tag of the host may be bound to the field.
        bool tagCanBeAttached() const;
        //! Of the type that FieldType tells. A multi-language text field holds translatable texts
        //! instead: one TranslationStringType, a list of them, or a map from int to them.
        const QVariant &defaultValue() const;
        bool readOnly() const;
        //! The property group under which the editor shows the field; empty for none.
        const TranslationStringType &group() const;
        //! The field is not shown to the editor's user.
        bool isPrivate() const;
        //! The condition under which the field is of use; empty for always.
        const QString &requirements() const;
        //! The bounds of an integer (int) or double (double) field; invalid for no bound.
        const QVariant &minimum() const;
        const QVariant &maximum() const;
        //! The font of a multi-language text field.
        const QFont &defaultFont() const;
        //! The description gave a default font.
        bool defaultFontSpecified() const;
        bool isMultiLanguage() const;
        //! The choices of an option field: index and text, in the order given.
        const QList<QPair<int, QString>> &options() const;
        //! Labels of the five parts of a font, for font and multi-language text fields.
        const TranslationStringType &displayFontFamily() const;
        const TranslationStringType &displayFontSize() const;
        const TranslationStringType &displayFontBold() const;
        const TranslationStringType &displayFontStyle() const;
        const TranslationStringType &displayFontUnderline() const;
        //! The types of tag that may be bound to a tag field; empty for any.
        const QVector<TagType> &tagAcceptedTypes() const;
        bool tagOnDemand() const;

        //! The field holds a text, list or map of texts that differs by language.
        bool isMultiLanguageText() const;
        //! The translatable texts of the default value, in order; none unless the field is
        //! multi-language.
        QList<TranslationStringType> defaultTexts() const;
        //! The field has the five font labels: a font field or a multi-language text field.
        bool hasFontLabels() const;

    private:
        friend class FieldDescriptionReader;

        explicit FieldMetaInformation(QSharedDataPointer<FieldMetaInformationData> &&data);

        QSharedDataPointer<FieldMetaInformationData> d;
    };

    //! The description of one widget in one version. Copies share their data.
    class ZPPLUGIN_EXPORT WidgetMetaInformation
    {
    public:
        //! An invalid description: empty texts, an invalid size, no fields.
        WidgetMetaInformation();
        WidgetMetaInformation(const QString &id, const VersionType &version,
                              const TranslationStringType &display,
                              const TranslationStringType &description, const QSizeF &defaultSize,
                              const TranslationStringType &galleryGroupName, bool showInPageGallery,
                              bool showInProjectGallery, bool receiveAlarmsEvents,
                              const QMap<QString, FieldMetaInformation> &fields);
        WidgetMetaInformation(const WidgetMetaInformation &other);
        WidgetMetaInformation(WidgetMetaInformation &&other) noexcept;
        WidgetMetaInformation &operator=(const WidgetMetaInformation &other);
        WidgetMetaInformation &operator=(WidgetMetaInformation &&other) noexcept;
        ~WidgetMetaInformation();

        //! False only for a default-constructed description.
        bool isValid() const;
        const QString &id() const;
        const VersionType &version() const;
        const TranslationStringType &display() const;
        const TranslationStringType &description() const;
        //! The size of a new instance, in scene units; invalid when not given.
        const QSizeF &defaultSize() const;
        //! The gallery group; empty for the default group.
        const TranslationStringType &galleryGroupName() const;
        bool showInPageGallery() const;
        bool showInProjectGallery() const;
        //! Instances want to hear of alarms.
        bool receiveAlarmsEvents() const;
        //! The fields by id.
        const QMap<QString, FieldMetaInformation> &fields() const;
        //! What the host may do with each value of an instance: one entry a field, and one more
        //! for the font of each multi-language text field.
        QMap<QString, FieldInfo> fieldInfo() const;

    private:
        QSharedDataPointer<WidgetMetaInformationData> d;
    };

    //! Widgets by id and version text.
    using WidgetMap = QMap<QPair<QString, QString>, WidgetMetaInformation>;

    WidgetLibraryPluginMetaInformation();
    WidgetLibraryPluginMetaInformation(const WidgetLibraryPluginMetaInformation &other);
    WidgetLibraryPluginMetaInformation(WidgetLibraryPluginMetaInformation &&other) noexcept;
    WidgetLibraryPluginMetaInformation &operator=(const WidgetLibraryPluginMetaInformation &other);
    WidgetLibraryPluginMetaInformation &
    operator=(WidgetLibraryPluginMetaInformation &&other) noexcept;
    ~WidgetLibraryPluginMetaInformation() override;

    //! Every widget, keyed by (id, version text); ordered by id, then by version as plain text.
    const WidgetMap &widgets() const { return m_widgets; }
    //! The latest version of every widget, keyed by widget id. Filled on the first call, which
    //! is to be made before the description is shared between threads.
    const QMap<QString, WidgetMetaInformation> &widgetsLatestVersion() const;
    //! The distinct group names of the widgets shown in the page gallery, in order of appearance.
    const QList<TranslationStringType> &pageWidgetsGalleryGroups() const;
    //! The same for the project gallery.
    const QList<TranslationStringType> &projectWidgetsGalleryGroups() const;
    //! Some widget of the page gallery names no group and goes to the default group.
    bool pageWidgetsDefaultGalleryGroupIsUsed() const;
    //! The same for the project gallery.
    bool projectWidgetsDefaultGalleryGroupIsUsed() const;

    QList<TranslationStringType> translatableStrings(const QString &languageCode) const override;

    //! The type of that name, in any letter case; Undefined if there is none.
    static FieldType fieldTypeFromString(const QString &name);
    //! The name as metadata and documents write it; empty for an unknown number.
    static QString fieldTypeToString(FieldType type);
    //! The type of exactly that name; Unknown if there is none.
    static TagType tagTypeFromString(const QString &name);
    //! The name as metadata and documents write it; empty for Unknown and unknown numbers.
    static QString tagTypeToString(TagType type);
    //! Only fields of such types may be named in another field's requirements.
    static bool fieldTypeCanBeUsedInARequirementsExpression(FieldType type);

private:
    friend class WidgetLibraryPluginUtils;

    void init(const WidgetMap &widgets);
    void clear() override;

    WidgetMap m_widgets;
    mutable QMap<QString, WidgetMetaInformation> m_widgetsLatestVersion;
    QList<TranslationStringType> m_pageWidgetsGalleryGroups;
    QList<TranslationStringType> m_projectWidgetsGalleryGroups;
    bool m_pageWidgetsDefaultGalleryGroupIsUsed = false;
    bool m_projectWidgetsDefaultGalleryGroupIsUsed = false;
};

} // namespace NARV::INTERNAL

Q_DECLARE_TYPEINFO(NARV::INTERNAL::WidgetLibraryPluginMetaInformation::FieldType, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(NARV::INTERNAL::WidgetLibraryPluginMetaInformation::TagType, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(NARV::INTERNAL::WidgetLibraryPluginMetaInformation::FieldInfo, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(NARV::INTERNAL::WidgetLibraryPluginMetaInformation::FieldMetaInformation,
                   Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(NARV::INTERNAL::WidgetLibraryPluginMetaInformation::WidgetMetaInformation,
                   Q_MOVABLE_TYPE);
