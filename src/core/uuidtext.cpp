#include "core/uuidtext_p.h"

namespace NARV::INTERNAL {

static constexpr int plainLength = 36;
static constexpr int bracedLength = plainLength + 2;

static bool isHyphenPosition(int position)
{
    return position == 8 || position == 13 || position == 18 || position == 23;
}

static bool isHexDigit(ushort c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool isPlainUuidText(QStringView text)
{
    if (text.size() != plainLength)
        return false;
    bool isNull = true;
    for (int i = 0; i < plainLength; ++i) {
        const ushort c = text[i].unicode();
        if (isHyphenPosition(i) ? c != '-' : !isHexDigit(c))
            return false;
        isNull = isNull && (c == '0' || c == '-');
    }
    return !isNull;
}

bool isUuidText(QStringView text)
{
    const bool braced = text.size() == bracedLength && text.front() == QLatin1Char('{') &&
                        text.back() == QLatin1Char('}');
    return isPlainUuidText(braced ? text.mid(1, plainLength) : text);
}

} // namespace NARV::INTERNAL
