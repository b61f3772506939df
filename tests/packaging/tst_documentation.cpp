#include <QDir>
#include <QRegularExpression>
#include <QtTest>

//! The code in the pages for readers is code that is built and run elsewhere in this project, and
//! their links lead to files that exist.
class tst_Documentation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void codeIsFromAnExample_data() { addPages(); }
    void codeIsFromAnExample();
    void linksLeadToFiles_data() { addPages(); }
    void linksLeadToFiles();

private:
    static void addPages();
    static QString read(const QString &path);
};

static const QDir project(QStringLiteral(PROJECT_DIR));

void tst_Documentation::addPages()
{
    QTest::addColumn<QString>("page");
    const QDir docs(project.filePath(QStringLiteral("docs")));
    const QStringList pages({QStringLiteral("*.md")});
    for (const QDir &folder : {project, docs}) {
        for (const QString &name : folder.entryList(pages))
            QTest::newRow(qPrintable(name)) << folder.filePath(name);
    }
}

QString tst_Documentation::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

void tst_Documentation::codeIsFromAnExample()
{
    QFETCH(QString, page);
    QString examples;
    for (const auto folder : {"examples/hello", "tests/packaging/consumer"}) {
        const QDir dir(project.filePath(QLatin1String(folder)));
        for (const QString &name : dir.entryList(QDir::Files))
            examples += read(dir.filePath(name)).simplified() + QLatin1Char('\n');
    }

    static const QRegularExpression code(QStringLiteral("```(cpp|cmake|json)\n(.*?)```"),
                                         QRegularExpression::DotMatchesEverythingOption);
    auto blocks = code.globalMatch(read(page));
    while (blocks.hasNext()) {
        const QString block = blocks.next().captured(2);
        QVERIFY2(examples.contains(block.simplified()), qPrintable(block));
    }
}

void tst_Documentation::linksLeadToFiles()
{
    QFETCH(QString, page);
    static const QRegularExpression link(QStringLiteral("\\]\\(([^):#]+)(#[^)]*)?\\)"));
    auto links = link.globalMatch(read(page));
    while (links.hasNext()) {
        const QString target = links.next().captured(1);
        QVERIFY2(QFileInfo::exists(QFileInfo(page).dir().filePath(target)), qPrintable(target));
    }
}

QTEST_GUILESS_MAIN(tst_Documentation)
#include "tst_documentation.moc"
