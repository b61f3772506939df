#include "guardedtest.h"

#include "properties/fieldrequirements.h"

using namespace NARV::DEV;

static const struct
{
    const char *name; // the requirements
    bool isShown;
    const char *reason;
} rows[] = {
    {"one==1&&three==2", false,
     "\"three\" is \"3\", not \"2\" (the last of the conditions joined by \"&\" decides)"},
    {"one==2&&three==3", true, ""},
    {"one==5||three==3", true, ""},
    {"one==1||three==2", false,
     "\"three\" is \"3\", not \"2\" (the last of the conditions joined by \"|\" decides)"},
    {"one == 1", false, "\"one \" is \"\", not \" 1\""},
    {"off", true, ""},
    {"off==false", true, ""},
    {"off==true", false, "\"off\" is \"false\", not \"true\""},
    {"unknown", false, "\"unknown\" has no value"},
    {"unknown==", true, ""},
    {"unknown<1", true, ""},
    {"unknown>-1", true, ""},
    {"unknown>0", false, "\"unknown\" is \"\", not greater than \"0\""},
    {"half>0.4", true, ""},
    {"half<0.5", false, "\"half\" is \"0.5\", not less than \"0.5\""},
    {"three<=4", false, "\"three\" is \"3\", not less than \"=4\""},
    {"three===3", false, "\"three\" is \"3\", not \"=3\""},
    {"unknown&one", true, ""},
    {"one&", false, "\"\" has no value (the last of the conditions joined by \"&\" decides)"},
    {"one|unknown&one", true, ""}, // "&" splits first: "one|unknown" is an id then
    {"unknown&one|one", false,
     "\"one|one\" has no value (the last of the conditions joined by \"&\" decides)"},
};

static const struct
{
    const char *name; // the requirements
    const char *term; // at fault
} malformedRows[] = {
    {"one<3<4", "one<3<4"},
    {"one==1==1", "one==1==1"},
    {"unknown&&one>2>1", "one>2>1"},
    {"one==1|one<1<1|unknown", "one<1<1"},
};

class tst_FieldRequirements : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void evaluation_data() { addRows(rows); }
    void evaluation();
    void malformed_data() { addRows(malformedRows); }
    void malformed();
    void groupsFollowTheirRows();
};

static QVariant value(int, const QString &id)
{
    static const QVariantMap values{
        {u("one"), 1}, {u("three"), 3}, {u("off"), false}, {u("half"), 0.5}};
    return values.value(id);
}

void tst_FieldRequirements::evaluation()
{
    const auto &row = currentRow(rows);
    FieldRequirements::Row text{row.isShown}; // the opposite of what is to come out
    FieldRequirements::Row font{row.isShown};
    FieldRequirements requirements({{u("field"), {{u(row.name)}, {&text, &font}}}}, {});
    requirements.update(value);
    QCOMPARE(!text.isHidden, row.isShown);
    QCOMPARE(!font.isHidden, row.isShown);
    QCOMPARE(requirements.reason(u("field")).text, u(row.reason));
}

void tst_FieldRequirements::malformed()
{
    const auto &row = currentRow(malformedRows);
    FieldRequirements::Row shown{false};
    FieldRequirements::Row hidden{true};
    FieldRequirements requirements({{u("field"), {{u(row.name)}, {&shown, &hidden}}}}, {});
    requirements.update(value);
    QVERIFY(!shown.isHidden);
    QVERIFY(hidden.isHidden);
    QVERIFY(requirements.reason(u("field")).text.contains(u(row.term)));
    const auto expected = u("The requirements \"%1\" of the field \"field\" is invalid: \"%2\"")
                              .arg(u(row.name), u(row.term));
    const LogEntry entry{QtCriticalMsg, QString(), u("TESTAPP"), expected};
    QCOMPARE(takeLog(), QList<LogEntry>{entry});
}

void tst_FieldRequirements::groupsFollowTheirRows()
{
    FieldRequirements::Row a, b, plain, full, half, empty;
    int level = 0;
    FieldRequirements requirements({{u("a"), {{u("level>0")}, {&a}}},
                                    {u("b"), {{u("level>1")}, {&b}}},
                                    {u("c"), {{QString()}, {&plain}}}},
                                   {{u("Both"), {&full, {&a, &b}}},
                                    {u("Empty"), {&empty, {}}},
                                    {u("Half"), {&half, {&b, &plain}}}});
    const auto isHidden = [&](int now) {
        level = now;
        requirements.update([&level](int, const QString &) { return level; });
        return QVector<bool>{full.isHidden, half.isHidden, empty.isHidden};
    };
    QCOMPARE(isHidden(0), QVector<bool>({true, false, true}));
    QCOMPARE(isHidden(1), QVector<bool>({false, false, true}));
    QVERIFY(b.isHidden);
    QCOMPARE(isHidden(0), QVector<bool>({true, false, true}));
}

QTEST_GUILESS_MAIN(tst_FieldRequirements)

#include "tst_fieldrequirements.moc"
