#include "guardedtest.h"

#include <NARV/DEV/WidgetLibraryPluginTestWidget>

#include <QAction>
#include <QGraphicsView>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

using NARV::DEV::WidgetLibraryPluginTestWidget;

//! Widgets whose code goes wrong once they are on the page.
class tst_Misbehaving : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void whatHappenedIsTold_data();
    void whatHappenedIsTold();
    void whatItWroteOutlivesItsCode();
    void throwingInAHandler();
    void throwingOnInput();
    void muchAtOnce_data();
    void muchAtOnce();

private:
    void setFault(const QString &fault) { m_bench->setFieldValue(m_culprit, u("fault"), fault); }
    void click();

    std::unique_ptr<WidgetLibraryPluginTestWidget> m_bench;
    QString m_culprit;
};

void tst_Misbehaving::init()
{
    startGuard();
    m_bench = std::make_unique<WidgetLibraryPluginTestWidget>();
    m_bench->resize(1000, 700);
    m_bench->openPlugin(QStringLiteral(MISBEHAVING));
    QTRY_VERIFY(m_bench->isPluginLoaded());
    m_bench->show();
    m_culprit = m_bench->placeWidget(u("culprit"), {}, {200, 200});
    QCOMPARE(m_culprit, u("culprit"));
}

void tst_Misbehaving::cleanup()
{
    m_bench.reset();
    takeLog();
    checkGuard();
}

void tst_Misbehaving::click()
{
    auto *view = m_bench->findChild<QGraphicsView *>(u("page"));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->mapFromScene(200, 200));
}

static const struct
{
    const char *name;
    const char *fault;
    const char *told;
    int others; // on the page
} faultRows[] = {
    {"throws in paint", "paint", "\"culprit\" has thrown in paint(): no colours left", 0},
    {"throws among many", "paint", "\"culprit\" has thrown in paint(): no colours left", 120},
    {"deletes its item", "delete", "\"culprit\" has deleted its own graphics object", 0},
    {"deletes its item among many", "delete", "\"culprit\" has deleted its own graphics object",
     120},
};

void tst_Misbehaving::whatHappenedIsTold_data()
{
    addRows(faultRows);
}

// The widget stays on the page with what was set, and comes back once its code is better.
void tst_Misbehaving::whatHappenedIsTold()
{
    const auto &row = currentRow(faultRows);
    for (int i = 0; i < row.others; ++i)
        m_bench->placeWidget(u("culprit"), {}, {500, 300});
    QTest::qWait(50);
    QSignalSpy notices(m_bench.get(), &WidgetLibraryPluginTestWidget::notice);
    setFault(u(row.fault));
    QTRY_COMPARE(notices.size(), 1);
    QCOMPARE(notices[0][0].toString(), u(row.told));
    QCOMPARE(m_bench->widgetGeometry(m_culprit), QRectF(150, 150, 100, 100));
    QVERIFY(!m_bench->renderPage().isNull());
    setFault({});
    m_bench->reloadPlugin();
    QTRY_VERIFY(m_bench->isPluginLoaded());
    QTest::qWait(50);
    QCOMPARE(notices.size(), 1);
    QCOMPARE(m_bench->fieldValue(m_culprit, u("fault")), u(""));
}

// The id of a field that the widget has written is a text in the memory of its library.
void tst_Misbehaving::whatItWroteOutlivesItsCode()
{
    setFault(u("write"));
    QTRY_VERIFY(m_bench->fieldValue(m_culprit, u("count")).toInt() > 0);
    setFault({});
    m_bench->findChild<QAction *>(u("close"))->trigger();
    QVERIFY(!m_bench->isPluginLoaded());
    const QTemporaryDir folder;
    QVERIFY(m_bench->saveScene(folder.filePath(u("page.json"))));
    m_bench->openPlugin(QStringLiteral(MISBEHAVING));
    QVERIFY(m_bench->fieldValue(m_culprit, u("count")).toInt() > 0);
}

void tst_Misbehaving::throwingInAHandler()
{
    setFault(u("throw"));
    const auto log = takeLog();
    QVERIFY(!log.isEmpty());
    QVERIFY2(log.last().message.contains(u("the plugin threw an exception of unknown type")),
             qPrintable(log.last().message));
    QCOMPARE(m_bench->fieldValue(m_culprit, u("fault")), u("throw"));
}

void tst_Misbehaving::throwingOnInput()
{
    m_bench->setRuntimeMode(true);
    QSignalSpy notices(m_bench.get(), &WidgetLibraryPluginTestWidget::notice);
    click();
    QCOMPARE(notices.value(0).value(0).toString(),
             u("A widget has thrown while it got input: do not press"));
    click();
    QCOMPARE(notices.size(), 2);
}

static const struct
{
    const char *name;
    const char *fault;
} busyRows[] = {{"logs 100,000 records", "log"}, {"writes its fields for ever", "write"}};

void tst_Misbehaving::muchAtOnce_data()
{
    addRows(busyRows);
}

// The bench still does what it is asked.
void tst_Misbehaving::muchAtOnce()
{
    m_bench->showLog();
    m_bench->setRuntimeMode(true);
    setFault(u(currentRow(busyRows).fault));
    for (int i = 0; i < 20; ++i)
        QTest::qWait(10);
    m_bench->setRuntimeMode(false);
    m_bench->setFieldValue(m_culprit, u("count"), -1);
    QCOMPARE(m_bench->fieldValue(m_culprit, u("count")).toInt(), -1);
    m_bench->findChild<QWidget *>(u("page"))->setFocus();
    click();
    QTest::keyClick(m_bench->findChild<QWidget *>(u("page")), Qt::Key_Right);
    QCOMPARE(m_bench->widgetGeometry(m_culprit).left(), 151.0);
}

QTEST_MAIN(tst_Misbehaving)

#include "tst_misbehaving.moc"
