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
    void documentsAreFromTheGallery();
    void linksLeadToFiles_data();
    void linksLeadToFiles();
    void shortcutsAreThoseOfTheMenus();

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
    for (const auto page : {"README.md", "docs/file-formats.md", "docs/host-integrator-guide.md",
                            "docs/test-bench.md"})
        QTest::newRow(page) << QString::fromLatin1(page) << QString();
    QTest::newRow("gestures") << QStringLiteral("docs/plugin-author-guide.md")
                              << QStringLiteral("\n### Gestures\n");
}

void tst_Documentation::codeIsFromAnExample()
{
    QString examples;
    for (const auto folder : {"docs", "examples/hello", "examples/host", "examples/gallery",
                              "tests/packaging/consumer"}) {
        const QDir dir(project.filePath(QLatin1String(folder)));
        const QStringList files({QStringLiteral("*.cpp"), QStringLiteral("*.h"),
                                 QStringLiteral("*.json"), QStringLiteral("CMakeLists.txt")});
        for (const QString &name : dir.entryList(files))
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

void tst_Documentation::documentsAreFromTheGallery()
{
    QString documents;
    const QDir golden(project.filePath(QStringLiteral("tests/gallery/golden/it-IT")));
    for (const QString &name : golden.entryList(QDir::Files))
        documents += read(golden.filePath(name));
    static const QRegularExpression line(QStringLiteral("^ *<[a-zA-Z/].*>$"),
                                         QRegularExpression::MultilineOption);
    auto lines = line.globalMatch(read(project.filePath(QStringLiteral("docs/file-formats.md"))));
    QVERIFY(lines.hasNext());
    while (lines.hasNext()) {
        const QString text = lines.next().captured().trimmed();
        QVERIFY2(documents.contains(text), qPrintable(text));
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
    static const QRegularExpression code(QStringLiteral("```.*?```"),
                                         QRegularExpression::DotMatchesEverythingOption);
    auto links = link.globalMatch(read(page).remove(code));
    while (links.hasNext()) {
        const QString target = links.next().captured(1);
        QVERIFY2(QFileInfo::exists(QFileInfo(page).dir().filePath(target)), qPrintable(target));
    }
}

// Entries are written as {"name", TEXT("&Text"), "Ctrl+X", ...
void tst_Documentation::shortcutsAreThoseOfTheMenus()
{
    static const QRegularExpression entry(
        QStringLiteral("TEXT\\(\"([^\"]+)\"\\),\\s*\"([^\"]+)\""));
    const QString page = read(project.filePath(QStringLiteral("docs/test-bench.md")));
    auto entries =
        entry.globalMatch(read(project.filePath(QStringLiteral("src/dev/window/actiontable.cpp"))));
    QVERIFY(entries.hasNext());
    while (entries.hasNext()) {
        const QRegularExpressionMatch match = entries.next();
        const QString row = QStringLiteral("| %1 | %2 |\n")
                                .arg(match.captured(1).remove(QLatin1Char('&')), match.captured(2));
        QVERIFY2(page.contains(row), qPrintable(row));
    }
}

QTEST_GUILESS_MAIN(tst_Documentation)
#include "tst_documentation.moc"
