#include "guardedtest.h"

#include <NARV/INTERNAL/PluginLoader>

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

//! The documents that the editor reads about the gallery, as scripts/renew-golden last wrote them.
class tst_GoldenResources : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void areAsBefore_data();
    void areAsBefore();
    void areWellFormed_data() { areAsBefore_data(); }
    void areWellFormed();
};

static QStringList linesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {u("no file ") + path};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
}

void tst_GoldenResources::areAsBefore_data()
{
    QTest::addColumn<QString>("language");
    const auto languages =
        QDir(QStringLiteral(GOLDEN_DIR)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QVERIFY(languages.size() >= 2);
    for (const QString &language : languages)
        QTest::newRow(qPrintable(language)) << language;
}

void tst_GoldenResources::areAsBefore()
{
    QFETCH(QString, language);
    const QTemporaryDir out;
    NARV::INTERNAL::PluginLoader loader;
    QVERIFY(loader.loadFromPluginPath(QStringLiteral(GALLERY_LIBRARY), {}));
    QVERIFY(loader.init());
    QVERIFY(loader.generateStudioExtraResources(out.path(), language));
    const QDir made(out.filePath(loader.pluginData().firstKey()));
    const QDir golden(QStringLiteral(GOLDEN_DIR "/") + language);
    QCOMPARE(made.entryList(QDir::Files), golden.entryList(QDir::Files));
    for (const QString &name : made.entryList(QDir::Files))
        QCOMPARE(linesOf(made.filePath(name)), linesOf(golden.filePath(name)));
    loader.unload();
    for (const LogEntry &entry : takeLog())
        QCOMPARE(entry.type, int(QtInfoMsg));
}

// But for the attribute that the editor wants twice.
void tst_GoldenResources::areWellFormed()
{
    QFETCH(QString, language);
    const QString xmllint = QStandardPaths::findExecutable(u("xmllint"));
    QVERIFY2(!xmllint.isEmpty(), "there is no xmllint; scripts/setup --tests installs it");
    const QDir golden(QStringLiteral(GOLDEN_DIR "/") + language);
    for (const QFileInfo &file : golden.entryInfoList(QDir::Files)) {
        QProcess process;
        process.start(xmllint, {u("--noout"), file.filePath()});
        QVERIFY(process.waitForFinished());
        QStringList complaints;
        for (const QByteArray &line : process.readAllStandardError().split('\n')) {
            if (line.contains("error"))
                complaints += QString::fromUtf8(line).section(u("error : "), 1);
        }
        const bool isGallery = file.fileName().contains(u("gallery_page"));
        QCOMPARE(complaints.join(u("; ")), isGallery ? u("Attribute attrib redefined") : QString());
    }
}

QTEST_MAIN(tst_GoldenResources)
#include "tst_goldenresources.moc"
