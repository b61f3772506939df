#include "metadatagenerator.h"

static const QByteArray subjects[] = {"Level", "Pressure", "Temperature", "Speed", "Setpoint",
                                      "Valve", "Pump",     "Motor",       "Tank",  "Conveyor"};

static QByteArray displayText(int widget, int field)
{
    return subjects[field % 10] + " of unit " + QByteArray::number(widget) + '/' +
           QByteArray::number(field);
}

static QByteArray descriptionText(int widget, int field)
{
    return "What the operator sees as the " + subjects[(widget + field) % 10].toLower() +
           " number " + QByteArray::number(field) + " of the unit";
}

static const char fontLabels[] =
    R"(,"displayFontFamily":"Font family","displayFontSize":"Font size",)"
    R"("displayFontBold":"Bold","displayFontStyle":"Style","displayFontUnderline":"Underline")";

static QByteArray typePart(int field)
{
    switch (field % 10) {
    case 0:
        return R"("type":"double","defaultValue":12.5,"minimum":-50.0,"maximum":150.0,)"
               R"("tagCanBeAttached":true)";
    case 1:
        return R"("type":"integer","defaultValue":3,"minimum":0,"maximum":100)";
    case 2:
    case 3:
        return R"("type":"bool","defaultValue":true)";
    case 4:
        return R"("type":"color","defaultValue":"#ff8800")";
    case 5:
        return R"("type":"option","defaultValue":1,"options":[{"index":0,"option":"Left"},)"
               R"({"index":1,"option":"Centre"},{"index":2,"option":"Right"}])";
    case 6:
        return R"("type":"string","multiLanguage":true,"defaultValue":"No value")" +
               QByteArray(fontLabels);
    case 7:
        return R"("type":"tag","tagAcceptedTypes":["numeric","bool"])";
    case 8:
        return R"("type":"string","defaultValue":"bar","requirements":"f2 && f1 > 2")";
    default:
        return R"("type":"font","defaultValue":{"family":"Roboto","size":12,"bold":true})" +
               QByteArray(fontLabels);
    }
}

static QByteArray fieldText(int widget, int field)
{
    static const QByteArray groups[] = {"Appearance", "Scale", "Behaviour", "Limits"};
    return "{\"id\":\"f" + QByteArray::number(field) + "\",\"display\":\"" +
           displayText(widget, field) + "\",\"description\":[\"" + descriptionText(widget, field) +
           "\",\"shown in the property panel\"],\"group\":\"" + groups[field % 4] + "\"," +
           typePart(field) + '}';
}

QByteArray generateMetaData(const QByteArray &id, int widgets, int fields)
{
    QByteArray json = "{\"IID\":\"org.Mirt.NARV.WidgetLibrary\",\"MetaData\":{\"id\":\"" + id +
                      R"(","name":"Generated","author":"Nobody","version":"1.0.0","widgets":[)";
    for (int widget = 0; widget < widgets; ++widget) {
        json += widget ? ",{" : "{";
        json += "\"id\":\"widget" + QByteArray::number(widget) +
                R"(","version":"1.0.0","display":"Unit )" + QByteArray::number(widget) +
                R"(","galleryGroupName":"Units","defaultSize":"120x80","fields":[)";
        for (int field = 0; field < fields; ++field)
            json += (field ? "," : "") + fieldText(widget, field);
        json += "]}";
    }
    return json + "]}}";
}

QByteArray generateTranslation(const QByteArray &language, int rows)
{
    QByteArray csv = "Source,Comment,Translation\n";
    for (int row = 0; row < rows; ++row) {
        const int widget = row / 80;
        const int field = row % 80 / 2;
        const bool isDescription = row % 2;
        const QByteArray source =
            isDescription ? descriptionText(widget, field) : displayText(widget, field);
        // Descriptions repeat: those that came before are written as other texts.
        const QByteArray suffix =
            isDescription && widget >= 10 ? " in " + QByteArray::number(widget) : QByteArray();
        csv += source + suffix + (isDescription ? ",shown in the property panel," : ",,") +
               language + ' ' + source + '\n';
    }
    return csv;
}
