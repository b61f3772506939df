#pragma once

#include <QAtomicInt>
#include <QList>
#include <QMap>
#include <QMetaType>
#include <QString>
#include <QStringList>

#include <zpplugin_export.h>

namespace NARV::INTERNAL {

class TranslationTable;

//! What every plugin tells about itself in the "MetaData" object of its library file.
//!
//! A plain value. Only the metadata reader fills it; a record that was never filled has empty
//! texts, an invalid version and the default language "en-US".
class ZPPLUGIN_EXPORT PluginMetaInformation
{
public:
    //! A version number of three parts, compared part by part as numbers.
    class ZPPLUGIN_EXPORT VersionType
    {
    public:
        //! An invalid version: 0, 0, 0 and an empty text.
        VersionType() = default;
        //! Reads "major.minor.patch", three decimal numbers of at most 999999999 each. Any other
        //! text gives an invalid version. Leading zeros are dropped: "01.2.3" becomes "1.2.3".
        explicit VersionType(const QString &text);
        //! A valid version of these numbers; there is no upper bound.
        VersionType(unsigned int major, unsigned int minor, unsigned int patch);

        //! True unless the version was default-constructed or read from a malformed text.
        bool isValid() const { return !m_version.isEmpty(); }
        unsigned int versionMajor() const { return m_major; }
        unsigned int versionMinor() const { return m_minor; }
        unsigned int versionPatch() const { return m_patch; }
        //! The canonical text, such as "1.12.0"; empty while invalid.
        const QString &version() const { return m_version; }

        // Only the numbers count: an invalid version equals 0.0.0.
        bool operator==(const VersionType &other) const { return compare(other) == 0; }
        bool operator!=(const VersionType &other) const { return compare(other) != 0; }
        bool operator<(const VersionType &other) const { return compare(other) < 0; }
        bool operator<=(const VersionType &other) const { return compare(other) <= 0; }
        bool operator>(const VersionType &other) const { return compare(other) > 0; }
        bool operator>=(const VersionType &other) const { return compare(other) >= 0; }

    private:
        int compare(const VersionType &other) const;

        quint32 m_major = 0;
        quint32 m_minor = 0;
        quint32 m_patch = 0;
        QString m_version;
    };

    //! A text in several languages, keyed by language codes such as "en-US", with a comment for
    //! translators. Language codes are stored as given.
    class ZPPLUGIN_EXPORT TranslationStringType
    {
    public:
        //! No text, no comment; the fallback language is "en-US".
        TranslationStringType();
        TranslationStringType(const TranslationStringType &other);
        TranslationStringType(TranslationStringType &&other) noexcept;
        TranslationStringType &operator=(const TranslationStringType &other);
        TranslationStringType &operator=(TranslationStringType &&other) noexcept;
        ~TranslationStringType() = default;

        //! The text in languageCode, also when it is empty. If that language is missing: the text
        //! in the fallback language (null if missing too) when useFallback is set, else empty.
        QString get(const QString &languageCode, bool useFallback) const;
        //! Sets the text in languageCode, replacing the one already there.
        void set(const QString &languageCode, const QString &text);
        void setComment(const QString &comment) { m_comment = comment; }
        const QString &comment() const { return m_comment; }
        //! All texts by language code, in the order of the codes. May be asked by several threads.
        const QMap<QString, QString> &translations() const;
        //! The language codes present, ascending.
        QList<QString> keys() const { return translations().keys(); }
        //! True when there is a text for languageCode, an empty one included.
        bool contains(const QString &languageCode) const;
        //! True when there is no text in any language; the comment is not considered.
        bool isEmpty() const { return !m_isSingle && m_translations.isEmpty(); }
        //! Removes all texts and the comment; the fallback language stays.
        void clear();

        //! Equal texts, equal comments and equal fallback languages.
        bool operator==(const TranslationStringType &other) const;
        bool operator!=(const TranslationStringType &other) const { return !(*this == other); }

    private:
        friend class PluginMetaInformation;
        friend class PluginUtils;
        friend class TranslationTable;

        //! One text, which is also the one to fall back on.
        TranslationStringType(const QString &languageCode, QString text, QString comment);
        void remove(const QString &languageCode);
        void toMap();
        void listSingle() const;

        //! Nearly all texts are in the fallback language alone: those need no map until somebody
        //! asks for it, which then holds the same once more.
        QString m_text;
        QString m_comment;
        QString m_fallbackLanguage;
        mutable QMap<QString, QString> m_translations;
        mutable QAtomicInt m_isListed; //!< the single text is in the map, too
        bool m_isSingle = false;
    };

    PluginMetaInformation();
    PluginMetaInformation(const PluginMetaInformation &other);
    PluginMetaInformation(PluginMetaInformation &&other) noexcept;
    PluginMetaInformation &operator=(const PluginMetaInformation &other);
    PluginMetaInformation &operator=(PluginMetaInformation &&other) noexcept;
    virtual ~PluginMetaInformation();

    //! The display name.
    const TranslationStringType &name() const { return m_name; }
    //! The plugin's identifier: a UUID without braces, as written in the metadata.
    const QString &id() const { return m_id; }
    const QString &author() const { return m_author; }
    const VersionType &version() const { return m_version; }
    //! May be empty, like description and license.
    const TranslationStringType &copyright() const { return m_copyright; }
    const TranslationStringType &description() const { return m_description; }
    const TranslationStringType &license() const { return m_license; }
    //! The language in which the metadata's own texts are written; "en-US" unless given.
    const QString &defaultLanguage() const { return m_defaultLanguage; }
    //! The codes of the further languages for which the plugin brings translation files.
    const QStringList &translation() const { return m_translation; }

    //! Each distinct pair of text (in languageCode) and comment that a translator has to work on,
    //! once. Copyright, description and license are not offered for translation.
    virtual QList<TranslationStringType> translatableStrings(const QString &languageCode) const;

protected:
    //! Adds the text in the list's language unless it is blank or there with the same comment.
    static void addTranslatableStringToList(TranslationTable &list,
                                            const TranslationStringType &text);

private:
    friend class PluginUtils;
    friend class WidgetLibraryPluginMetaInformation;

    void init(const TranslationStringType &name, const QString &id, const QString &author,
              const VersionType &version, const TranslationStringType &copyright,
              const TranslationStringType &description, const TranslationStringType &license,
              const QString &defaultLanguage, const QStringList &translation);
    virtual void clear();

    TranslationStringType m_name;
    QString m_id;
    QString m_author;
    VersionType m_version;
    TranslationStringType m_copyright;
    TranslationStringType m_description;
    TranslationStringType m_license;
    QString m_defaultLanguage;
    QStringList m_translation;
};

} // namespace NARV::INTERNAL

Q_DECLARE_TYPEINFO(NARV::INTERNAL::PluginMetaInformation::VersionType, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(NARV::INTERNAL::PluginMetaInformation::TranslationStringType, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(NARV::INTERNAL::PluginMetaInformation::TranslationStringType)
