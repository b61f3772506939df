#pragma once

#include <QCborArray>
#include <QCborMap>

namespace NARV::INTERNAL {

// JSON that is only looked at. The toolkit keeps JSON in CBOR containers, so that seeing it as CBOR
// costs nothing; a QJsonValue counts references to its container, at twice the price of its use.
using JsonObject = QCborMap;
using JsonArray = QCborArray;
//! Valid as long as the object or array that it is in.
using JsonValue = QCborValueRef;

template<typename Value>
bool isNumber(const Value &value)
{
    return value.isInteger() || value.isDouble();
}

} // namespace NARV::INTERNAL
