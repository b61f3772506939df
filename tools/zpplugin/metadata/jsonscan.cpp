#include "metadata/jsonscan.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <cstring>
#include <vector>

namespace ZPPluginTool {

static const size_t maxDepth = 1024; // as Qt has it

//! Hears of every token of the text and keeps track of where it is.
class JsonScan::Handler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Handler>
{
public:
    //! The stream starts at offset base of the text.
    Handler(JsonScan &scan, const char *text, const rapidjson::MemoryStream &stream, qint64 base)
        : m_scan(scan)
        , m_text(text)
        , m_stream(stream)
        , m_base(base)
        , m_tokenEnd(base)
    {
    }

    //! Any value that is neither object nor array.
    bool Default()
    {
        enterValue();
        m_tokenEnd = tell();
        return true;
    }
    bool Key(const char *text, rapidjson::SizeType size, bool);
    bool StartObject() { return startContainer(false); }
    bool EndObject(rapidjson::SizeType) { return endContainer(); }
    bool StartArray() { return startContainer(true); }
    bool EndArray(rapidjson::SizeType) { return endContainer(); }

private:
    //! An object or array that is still open.
    struct Container
    {
        int place = -1; //!< -1 when nothing in it is wanted
        bool isArray = false;
        int index = -1; //!< of the array's latest element
        QByteArray key; //!< of the object's latest member
        qint64 keyOffset = 0;
        QMap<QByteArray, qint64> keys; //!< with the offset of the first of each; in order, as keys
                                       //!< can be made to share a hash
    };

    qint64 tell() const { return m_base + static_cast<qint64>(m_stream.Tell()); }
    qint64 tokenStart() const
    {
        const size_t gap = std::strspn(m_text + m_tokenEnd, " \t\r\n,:]}");
        return m_tokenEnd + static_cast<qint64>(gap);
    }
    int wantedPlace();
    int enterValue();
    bool startContainer(bool isArray);
    bool endContainer();

    JsonScan &m_scan;
    const char *m_text;
    const rapidjson::MemoryStream &m_stream;
    qint64 m_base;
    qint64 m_tokenEnd; //!< the end of the latest token; what is between tokens may follow
    qint64 m_visits = 0;
    std::vector<Container> m_open;
};

bool JsonScan::Handler::Key(const char *text, rapidjson::SizeType size, bool)
{
    Container &object = m_open.back();
    object.key = QByteArray(text, static_cast<int>(size));
    object.keyOffset = tokenStart();
    m_tokenEnd = tell();
    const auto first = object.keys.constFind(object.key);
    if (first == object.keys.constEnd())
        object.keys.insert(object.key, object.keyOffset);
    else
        m_scan.m_duplicateKeys.append({QString::fromUtf8(object.key), object.keyOffset, *first});
    return true;
}

//! The place of the value that starts now, or -1 if it is not wanted.
int JsonScan::Handler::wantedPlace()
{
    if (m_open.empty())
        return 0;
    Container &container = m_open.back();
    ++container.index;
    if (container.place < 0)
        return -1;
    const Place &around = m_scan.m_places[container.place];
    return container.isArray ? around.elements.value(container.index, -1)
                             : around.members.value(container.key, -1);
}

int JsonScan::Handler::enterValue()
{
    const int number = wantedPlace();
    if (number < 0)
        return number;
    Place &place = m_scan.m_places[number];
    place.valueOffset = tokenStart();
    const bool isMember = !m_open.empty() && !m_open.back().isArray;
    place.keyOffset = isMember ? m_open.back().keyOffset : place.valueOffset;
    place.visit = m_visits++;
    return number;
}

bool JsonScan::Handler::startContainer(bool isArray)
{
    Container container;
    container.place = enterValue();
    container.isArray = isArray;
    m_tokenEnd = tokenStart() + 1;
    m_open.push_back(container);
    return m_open.size() <= maxDepth;
}

bool JsonScan::Handler::endContainer()
{
    m_open.pop_back();
    return true;
}

JsonScan::JsonScan()
    : m_places(1)
{
}

int JsonScan::want(const ValuePath &path)
{
    int number = 0;
    for (const PathStep &step : path) {
        const int next = m_places.size();
        Place &place = m_places[number];
        int &child = step.isIndex() ? place.elements[step.index] : place.members[step.key.toUtf8()];
        const int parent = number;
        if (child == 0)
            child = next;
        number = child;
        if (number < next)
            continue;
        m_places.append(Place());
        m_places.last().parent = parent;
    }
    return number;
}

//! Worded like the other findings: no capital, no full stop.
static QString errorText(rapidjson::ParseErrorCode code)
{
    if (code == rapidjson::kParseErrorTermination)
        return QStringLiteral("more than %1 objects and arrays in one another").arg(maxDepth);
    QString text = QString::fromLatin1(rapidjson::GetParseError_En(code));
    text.front() = text.front().toLower();
    text.chop(1);
    return text;
}

JsonSyntaxError JsonScan::run(const QByteArray &json)
{
    const int base = json.startsWith("\xef\xbb\xbf") ? 3 : 0;
    rapidjson::MemoryStream stream(json.constData() + base,
                                   static_cast<size_t>(json.size() - base));
    Handler handler(*this, json.constData(), stream, base);
    rapidjson::Reader reader;
    constexpr unsigned flags = rapidjson::kParseIterativeFlag |
                               rapidjson::kParseValidateEncodingFlag |
                               rapidjson::kParseNumbersAsStringsFlag;
    const rapidjson::ParseResult result = reader.Parse<flags>(stream, handler);
    if (!result.IsError())
        return {};
    return {errorText(result.Code()), base + static_cast<qint64>(result.Offset())};
}

int JsonScan::nearest(int wanted) const
{
    QVector<int> chain;
    for (int number = wanted; number >= 0; number = m_places[number].parent)
        chain.prepend(number);
    int reached = 0;
    for (int number : chain) {
        if (m_places[number].visit < m_places[reached].visit)
            break;
        reached = number;
    }
    return reached;
}

qint64 JsonScan::keyOffset(int wanted) const
{
    const int reached = nearest(wanted);
    return reached == wanted ? m_places[reached].keyOffset : m_places[reached].valueOffset;
}

} // namespace ZPPluginTool
