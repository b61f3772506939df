#include "guardedtest.h"
#include "recordinglibrary.h"

#include <NARV/INTERNAL/WidgetActionManagerPrivateAccessor>

#include <QTest>

using NARV::WidgetActionManager;

class tst_WidgetActionManager : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void forwards();
    void withoutHost();
};

void tst_WidgetActionManager::forwards()
{
    GaugeFixture gauge;
    const WidgetActionManager &manager = gauge.widget->widgetActionManager();
    QCOMPARE(manager.getTagValue(QStringLiteral("t")), QVariant(QStringLiteral("tag t")));
    const QDateTime from(QDate(2024, 1, 2), QTime(3, 4));
    const QString trend = QStringLiteral("trend x 2024-01-02T03:04:00 2024-01-02T03:05:00 9 3");
    QCOMPARE(manager.getTrendValue(QStringLiteral("x"), from, from.addSecs(60), 9,
                                   WidgetActionManager::TrendTimeFormat::IsoText),
             QVariant(trend));
    QCOMPARE(manager.getAlarms().first().name(), QStringLiteral("pump"));
    manager.acknowAlarm(QStringLiteral("a"));
    manager.acknowAllAlarms();
    manager.resetAlarm(QStringLiteral("b"));
    manager.resetAllAlarms();
    const QString calls = QStringLiteral("tag t|%1|alarms|acknow a|acknow all|reset b|reset all");
    QCOMPARE(gauge.host.calls.join(QLatin1Char('|')), calls.arg(trend));

    auto *priv =
        NARV::INTERNAL::WidgetActionManagerPrivateAccessor::priv(gauge.priv()->widgetActionManager);
    QVERIFY(!manager.isInsideProjectEditor() && !priv->isInsideDevProject());
    gauge.host.insideProjectEditor = true;
    QVERIFY(manager.isInsideProjectEditor() && !priv->isInsideDevProject());
    gauge.host.insideDevProject = true;
    QVERIFY(priv->isInsideDevProject());
}

void tst_WidgetActionManager::withoutHost()
{
    RecordingLibrary library;
    const QScopedPointer<RecordingWidget> unbound(library.newGauge(nullptr));
    const NARV::WidgetData data(QStringLiteral("gauge"), {}, {}, {}, nullptr, nullptr);
    RecordingWidget unmanaged(data);
    for (RecordingWidget *widget : {unbound.data(), &unmanaged}) {
        const WidgetActionManager &manager = widget->widgetActionManager();
        QVERIFY(!manager.getTagValue(QStringLiteral("t")).isValid());
        QVERIFY(manager.getAlarms().isEmpty());
        manager.resetAllAlarms();
        QVERIFY(!manager.isInsideProjectEditor());
        widget->setFieldValue(QStringLiteral("none"), 1);
    }
}

QTEST_MAIN(tst_WidgetActionManager)
#include "tst_widgetactionmanager.moc"
