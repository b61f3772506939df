#pragma once

#include "core/fieldmetainformation_p.h"
#include "core/objectreader_p.h"

namespace NARV::INTERNAL {

//! Reads the description of one field: one function a group of keys, called in the order in which
//! faults are to be found.
class FieldDescriptionReader
{
public:
    using Library = WidgetLibraryPluginMetaInformation;
    using FieldMetaInformation = Library::FieldMetaInformation;
    using FieldType = Library::FieldType;
    using TranslationStringType = PluginMetaInformation::TranslationStringType;

    FieldDescriptionReader(const JsonObject &object, const JsonPath &path,
                           DescriptionContext &context);

    //! Reads all keys. What is malformed ends up in the context's faults.
    FieldMetaInformation infoFromMetaDataParseField();
    //! The fields that the requirements name.
    const QStringList &requirementsFieldIds() const { return m_requirementsFieldIds; }

private:
    using DefaultValueReader = bool (FieldDescriptionReader::*)(JsonValue value);
    //! What only fields of one type have.
    struct TypeRules
    {
        DefaultValueReader readDefaultValue;        //!< null where a default value is refused
        void (FieldDescriptionReader::*readRest)(); //!< null if there is nothing more
    };
    static const TypeRules &typeRules(FieldType type);

    void readId();
    void readType();
    void readTagCanBeAttached();
    void infoFromMetaDataParseStringFieldIsMultiLanguage();
    void readDefaultValue();
    void readRequirements();
    void readRest();
    void readFontLabels();

    bool readDefaultString(JsonValue value);
    bool readDefaultStringList(JsonValue value);
    bool readDefaultStringMap(JsonValue value);
    bool readDefaultInteger(JsonValue value);
    bool readDefaultDouble(JsonValue value);
    bool readDefaultBool(JsonValue value);
    bool readDefaultColor(JsonValue value);
    bool readDefaultFont(JsonValue value);
    template<typename Text>
    bool readTextList(JsonValue value);
    template<typename Text>
    bool readTextMap(JsonValue value);
    bool readText(JsonValue value, QString &out) const;
    bool readText(JsonValue value, TranslationStringType &out) const;

    void infoFromMetaDataParseStringFieldCommon();
    template<typename Number>
    void readBounds();
    void readOptions();
    void readTagRules();
    bool addAcceptedType(const QString &name);

    bool isText() const;
    FontInformationData &fontInformation();
    QString refusal(const char *text) const;

    ObjectReader m_in;
    QSharedDataPointer<FieldMetaInformationData> m_data;
    FieldMetaInformationData &m_field;
    //! False when "multiLanguage" is malformed: nobody knows what the default value has to be.
    bool m_hasDefaultValueRules = true;
    bool m_defaultValueIsReported = false;
    QStringList m_requirementsFieldIds;
};

} // namespace NARV::INTERNAL
