#include "guardedtest.h"

#include "core/requirements_p.h"

#include <QRandomGenerator>
#include <QRegularExpression>

using namespace NARV::INTERNAL;

static const struct
{
    const char *name;  // the text
    const char *terms; // empty: malformed
} termRows[] = {
    {"visible", "visible"},
    {"_a1", "_a1"},
    {"a ", "a"},
    {"a&&b", "a;b"},
    {"a && b > 3", "a;b>3"},
    {"a==true||b == false", "a==true;b==false"},
    {"a<-1&&b>+2", "a<-1;b>+2"},
    {"a == 1.50||c", "a==1.50;c"},
    {"1==1", "1==1"},
    {"", ""},
    {" a", ""},
    {"a  && b", ""},
    {"a == 1 ", ""},
    {"a >= 1", ""},
    {"a != 1", ""},
    {"a == -1.5", ""},
    {"a == 1.", ""},
    {"a == b", ""},
    {"a == truest", ""},
    {"a & b", ""},
    {"a &&", ""},
    {"(a)", ""},
    {"a\n", ""},
    {"a == \xd9\xa1", ""}, // a digit, but not an ASCII one
};

//! The requirements grammar.
class tst_Requirements : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void terms_data() { addRows(termRows); }
    void terms();
    void acceptsWhatTheGrammarAccepts();
    void readsLongTextsInOnePass();
};

void tst_Requirements::terms()
{
    const QString text = u(currentRow(termRows).name);
    const QString terms = u(currentRow(termRows).terms);
    QVector<RequirementsTerm> found;
    QCOMPARE(readRequirements(text, found), !terms.isEmpty());
    QStringList written;
    for (const RequirementsTerm &term : found)
        written += term.fieldId.toString() + term.comparison.toString() + term.constant.toString();
    QCOMPARE(written.join(QLatin1Char(';')), terms);
}

// The grammar as a regular expression, which gives up on some long texts.
void tst_Requirements::acceptsWhatTheGrammarAccepts()
{
    const QRegularExpression grammar(QStringLiteral(
        R"(^(?:[a-zA-Z\d_]+(?:(?: ){0,1}(?:==|<|>){1}(?: ){0,1}(?:[\+-]{0,1}[\d]+|[\d]+\.[\d]+)"
        R"(|true|false){1}){0,1}(?: ){0,1}(?:&&|\|\|){1}(?: ){0,1})*(?:[a-zA-Z\d_]+(?: ){0,1})"
        R"((?:(?:==|<|>){1}(?: ){0,1}(?:[\+-]{0,1}[\d]+|[\d]+\.[\d]+|true|false){1}){0,1}){1}\z)"));
    QVERIFY(grammar.isValid());
    const QStringList pieces =
        u("a b_2 == < > && || 7 - + . true").split(QLatin1Char(' ')) + QStringList(u(" "));
    QRandomGenerator random(20261);
    int accepted = 0;
    for (int i = 0; i < 200000; ++i) {
        QString text;
        for (int length = random.bounded(9); length >= 0; --length)
            text += pieces[random.bounded(pieces.size())];
        QVector<RequirementsTerm> terms;
        const bool isAccepted = readRequirements(text, terms);
        QVERIFY2(isAccepted == grammar.match(text).hasMatch(), qPrintable(text));
        accepted += isAccepted;
    }
    QVERIFY(accepted > 1000);
}

void tst_Requirements::readsLongTextsInOnePass()
{
    QVector<RequirementsTerm> terms;
    QVERIFY(readRequirements(QString(1 << 20, QLatin1Char('a')), terms));
    QVERIFY(!readRequirements(QString(1 << 20, QLatin1Char('a')) + QLatin1Char('!'), terms));
    QVERIFY(readRequirements(QStringLiteral("ab||").repeated(1 << 18) + QLatin1Char('z'), terms));
    QCOMPARE(terms.size(), (1 << 18) + 1);
}

QTEST_GUILESS_MAIN(tst_Requirements)
#include "tst_requirements.moc"
