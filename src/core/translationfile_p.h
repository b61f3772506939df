#pragma once

#include <QByteArray>
#include <QString>

namespace NARV::INTERNAL {

//! The lines behind the header line of a comma-separated translation file, one after another.
class TranslationFile
{
public:
    //! The fields of a line. Only the first three are kept, but all are counted.
    class Fields
    {
    public:
        int count = 0;
        QString text(int index) const;

    private:
        friend class TranslationFile;
        struct Slice
        {
            const char *begin;
            int size;
        };
        void append(const char *begin, const char *end);

        Slice m_slices[3] = {};
    };

    explicit TranslationFile(const QString &filePath);

    bool isOpen() const { return m_isOpen; }
    //! Goes to the next line; false behind the last one.
    bool nextLine();
    //! Splits the current line; valid until the next call.
    Fields fields();

private:
    Fields plainFields() const;
    Fields quotedFields();

    bool m_isOpen = false;
    QByteArray m_content; //!< UTF-8
    const char *m_line = nullptr;
    const char *m_lineEnd = nullptr;
    const char *m_next = nullptr;
    QByteArray m_unquoted; //!< the line's fields without their quotes, one after another
};

} // namespace NARV::INTERNAL
