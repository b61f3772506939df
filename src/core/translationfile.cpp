#include "core/translationfile_p.h"

#include "core/pluginutils.h"
#include "core/translationtable_p.h"

#include <QFile>
#include <QTextCodec>

#include <cstring>

namespace NARV::INTERNAL {

static constexpr int markSize = 3;

static bool startsWithMark(const char *text, int size)
{
    return size >= markSize && std::memcmp(text, "\xef\xbb\xbf", markSize) == 0;
}

static QByteArray toUtf8(const QByteArray &content)
{
    static constexpr int utf8Mib = 106;
    if (startsWithMark(content.constData(), content.size()))
        return content.mid(markSize);
    QTextCodec *utf8 = QTextCodec::codecForMib(utf8Mib);
    QTextCodec *codec = QTextCodec::codecForUtfText(content, utf8);
    return codec == utf8 ? content : codec->toUnicode(content).toUtf8();
}

TranslationFile::TranslationFile(const QString &filePath)
{
    QFile file(filePath);
    m_isOpen = file.open(QIODevice::ReadOnly);
    if (!m_isOpen)
        return;
    m_content = toUtf8(file.readAll());
    m_next = m_content.constData();
    nextLine();
}

bool TranslationFile::nextLine()
{
    const char *end = m_content.constData() + m_content.size();
    if (m_next == end)
        return false;
    m_line = m_next;
    const void *lineFeed = std::memchr(m_line, '\n', size_t(end - m_line));
    m_lineEnd = lineFeed ? static_cast<const char *>(lineFeed) : end;
    m_next = lineFeed ? m_lineEnd + 1 : end;
    if (lineFeed && m_lineEnd != m_line && m_lineEnd[-1] == '\r')
        --m_lineEnd;
    return true;
}

TranslationFile::Fields TranslationFile::fields()
{
    const bool isQuoted = std::memchr(m_line, '"', size_t(m_lineEnd - m_line));
    return isQuoted ? quotedFields() : plainFields();
}

// The toolkit takes a byte-order mark off any text; inside the file it is a character like others.
QString TranslationFile::Fields::text(int index) const
{
    const Slice &slice = m_slices[index];
    const QString text = QString::fromUtf8(slice.begin, slice.size);
    return startsWithMark(slice.begin, slice.size) ? QChar(QChar::ByteOrderMark) + text : text;
}

void TranslationFile::Fields::append(const char *begin, const char *end)
{
    if (count < 3)
        m_slices[count] = {begin, int(end - begin)};
    ++count;
}

TranslationFile::Fields TranslationFile::plainFields() const
{
    Fields fields;
    const char *begin = m_line;
    while (const void *comma = std::memchr(begin, ',', size_t(m_lineEnd - begin))) {
        fields.append(begin, static_cast<const char *>(comma));
        begin = static_cast<const char *>(comma) + 1;
    }
    fields.append(begin, m_lineEnd);
    return fields;
}

// Quotes may open and close anywhere; of two in a row one belongs to the text, even where they
// enclose nothing.
TranslationFile::Fields TranslationFile::quotedFields()
{
    m_unquoted.resize(int(m_lineEnd - m_line));
    char *begin = m_unquoted.data();
    char *out = begin;
    Fields fields;
    bool isInQuotes = false;
    char previous = 0;
    for (const char *c = m_line; c != m_lineEnd; previous = *c++) {
        if (*c == ',' && !isInQuotes) {
            fields.append(begin, out);
            begin = out;
        } else if (*c == '"') {
            isInQuotes = !isInQuotes;
            if (previous == '"')
                *out++ = '"';
        } else {
            *out++ = *c;
        }
    }
    fields.append(begin, out);
    return fields;
}

bool PluginUtils::importTranslationFile(const QString &filePath,
                                        QList<PluginMetaInformation::TranslationStringType> &list,
                                        const QString &defaultLanguage, const QString &languageCode,
                                        bool addMissing)
{
    // The list moves into the table and back: a copy would share its texts, and each row would
    // have to detach them.
    TranslationTable table(defaultLanguage, std::move(list));
    const bool ok = table.importFile(filePath, languageCode, addMissing);
    list = table.takeEntries();
    return ok;
}

} // namespace NARV::INTERNAL
