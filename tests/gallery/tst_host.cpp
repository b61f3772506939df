#include "guardedtest.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

static const struct
{
    const char *name;
    const char *arguments;
    int leastColors; // in the picture
} pictureRows[] = {
    {"all, edited", "--editor", 50},
    {"gauges at work", "gauge", 20},
    {"alarms raised", "alarmList", 20},
    {"controls at work", "numericInput", 5},
};

//! The example host, run with a plugins folder that holds the gallery only.
class tst_Host : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void draws_data() { addRows(pictureRows); }
    void draws();
    void editorAndRunTimeDiffer();
    void drawsCurves();
    void failsWithoutPlugins();

private:
    //! The picture; null if the host fails.
    QImage run(const QString &arguments, const QString &plugins = {});

    QTemporaryDir m_folder;
    QString m_plugins;
    QString m_errors;
};

void tst_Host::initTestCase()
{
    const QDir library = QFileInfo(QStringLiteral(GALLERY_LIBRARY)).dir();
    const QDir plugin(library.absoluteFilePath(u("../..")));
    m_plugins = m_folder.filePath(u("plugins"));
    QVERIFY(QDir().mkpath(m_plugins));
    QVERIFY(QFile::link(plugin.canonicalPath(),
                        m_plugins + u("/") + QDir(plugin.canonicalPath()).dirName()));
}

QImage tst_Host::run(const QString &arguments, const QString &plugins)
{
    const QString picture = m_folder.filePath(u("picture.png"));
    QFile::remove(picture);
    QStringList all{plugins.isEmpty() ? m_plugins : plugins, u("--render"), picture};
    all += arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QProcess host;
    host.start(QStringLiteral(HOST), all);
    const bool isFine = host.waitForFinished(60000) && host.exitStatus() == QProcess::NormalExit &&
                        host.exitCode() == 0;
    m_errors = QString::fromUtf8(host.readAllStandardError());
    return isFine ? QImage(picture) : QImage();
}

static int colorCount(const QImage &image)
{
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    }
    return colors.size();
}

void tst_Host::draws()
{
    const auto &row = currentRow(pictureRows);
    const QImage picture = run(u(row.arguments));
    QVERIFY2(!picture.isNull(), qPrintable(m_errors));
    QVERIFY(colorCount(picture) >= row.leastColors);
    QCOMPARE(run(u(row.arguments)), picture);
    QVERIFY2(!m_errors.contains(u("[WARNING]")), qPrintable(m_errors));
}

void tst_Host::editorAndRunTimeDiffer()
{
    for (const char *widget : {"gauge", "bar", "lamp", "alarmList", "numericInput"})
        QVERIFY2(run(u(widget)) != run(u(widget) + u(" --editor")), widget);
}

void tst_Host::drawsCurves()
{
    const QImage picture = run(u("trendChart"));
    QVERIFY(!picture.isNull());
    for (const char *color : {"#3a6ea5", "#b35900", "#2e9e4f"}) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                count += int(picture.pixelColor(x, y) == QColor(u(color)));
        }
        QVERIFY2(count > 200, color); // more than the mark in the legend
    }
}

void tst_Host::failsWithoutPlugins()
{
    QVERIFY(run({}, m_folder.filePath(u("none"))).isNull());
    QVERIFY(m_errors.contains(u("none")));
}

QTEST_GUILESS_MAIN(tst_Host)
#include "tst_host.moc"
