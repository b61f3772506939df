// The text form of a font.

#include "fuzztarget.h"

#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QJsonDocument>
#include <QJsonObject>

using NARV::INTERNAL::WidgetLibraryPluginUtils;

static QJsonValue member(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key));
}

static void checkWritten(const QString &text)
{
    const QJsonObject object = QJsonDocument::fromJson(text.toUtf8()).object();
    FUZZ_REQUIRE(object.size() == 5);
    FUZZ_REQUIRE(member(object, "family").isString());
    FUZZ_REQUIRE(member(object, "size").toInt(0) != 0);
    FUZZ_REQUIRE(member(object, "bold").isBool());
    FUZZ_REQUIRE(member(object, "underline").isBool());
    const QString style = member(object, "style").toString();
    FUZZ_REQUIRE(style == QLatin1String("italic") || style == QLatin1String("normal"));
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = fuzzText(fuzzBytes(data, size), false);
    const QJsonObject object = QJsonDocument::fromJson(text.toUtf8()).object();

    const QFont font = WidgetLibraryPluginUtils::fieldFontFromString(text);
    FUZZ_REQUIRE(font.family() == member(object, "family").toString());
    const QString written = WidgetLibraryPluginUtils::fieldFontToString(font);
    checkWritten(written);
    const QFont again = WidgetLibraryPluginUtils::fieldFontFromString(written);
    FUZZ_REQUIRE(WidgetLibraryPluginUtils::fieldFontToString(again) == written);

    bool ok = false;
    const QFont checked = WidgetLibraryPluginUtils::fieldFontFromString(text, &ok);
    FUZZ_REQUIRE(checked == (ok ? font : QFont()));
    FUZZ_REQUIRE(!ok || object.size() >= 5);
    FUZZ_REQUIRE(!ok || !(checked.bold() || checked.underline())); // they are numbers there
    return 0;
}
