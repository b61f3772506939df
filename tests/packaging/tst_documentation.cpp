#include <QDir>
#include <QRegularExpression>
#include <QtTest>

//! Code in the pages for readers is code that is built and run elsewhere in this project, and their
//! links lead to files that exist.
class tst_Documentation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void codeIsFromAnExample_data();
    void codeIsFromAnExample();
    void linksLeadToFiles_data();
    void linksLeadToFiles();

private:
    static QString read(const QString &path);
};

static const QDir project(QStringLiteral(PROJECT_DIR));

QString tst_Documentation::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

void tst_Documentation::codeIsFromAnExample_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("heading"); // of the only part whose code is; empty for all
    for (const auto page : {"README.md", "docs/host-integrator-guide.md"})
        QTest::newRow(page) << QString::fromLatin1(page) << QString();
    QTest::newRow("gestures") << QStringLiteral("docs/plugin-author-guide.md")
                              << QStringLiteral("\n### Gestures\n");
}

void tst_Documentation::codeIsFromAnExample()
{
    QString examples;
    for (const auto folder :
         {"examples/hello", "examples/host", "examples/gallery", "tests/packaging/consumer"}) {
        const QDir dir(project.filePath(QLatin1String(folder)));
        for (const QString &name : dir.entryList(QDir::Files))
            examples += read(dir.filePath(name)).simplified() + QLatin1Char('\n');
    }

    QFETCH(QString, page);
    QFETCH(QString, heading);
    QString text = read(project.filePath(page));
    if (!heading.isEmpty()) {
        QVERIFY(text.contains(heading));
        text = text.section(heading, 1).section(QStringLiteral("\n### "), 0, 0);
    }
    static const QRegularExpression block(QStringLiteral("```(cpp|cmake|json)\n(.*?)```"),
                                          QRegularExpression::DotMatchesEverythingOption);
    auto blocks = block.globalMatch(text);
    QVERIFY(blocks.hasNext());
    while (blocks.hasNext()) {
        const QStringList paragraphs = blocks.next().captured(2).split(QStringLiteral("\n\n"));
        for (const QString &paragraph : paragraphs)
            QVERIFY2(examples.contains(paragraph.simplified()), qPrintable(paragraph));
    }
}

void tst_Documentation::linksLeadToFiles_data()
{
    QTest::addColumn<QString>("page");
    const QStringList pages({QStringLiteral("*.md")});
    for (const auto folder : {".", "docs"}) {
        const QDir dir(project.filePath(QLatin1String(folder)));
        for (const QString &name : dir.entryList(pages))
            QTest::newRow(qPrintable(name)) << dir.filePath(name);
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
