#include "metadatagenerator.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

//! generatemetadata FILE ID WIDGETS FIELDS: writes a metadata file as an author would write it.
int main(int argc, char **argv)
{
    if (argc != 5)
        return 2;
    const QJsonObject object =
        QJsonDocument::fromJson(
            generateMetaData(argv[2], QByteArray(argv[3]).toInt(), QByteArray(argv[4]).toInt()))
            .object();
    QFile file(QString::fromLocal8Bit(argv[1]));
    const QByteArray json =
        QJsonDocument(object.value(QLatin1String("MetaData")).toObject()).toJson();
    if (file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.flush())
        return 0;
    std::fprintf(stderr, "%s: %s\n", argv[1], qPrintable(file.errorString()));
    return 1;
}
