#include "galleryhost.h"
#include "guardedtest.h"

#include <QSignalSpy>
#include <QtTest>

#include <limits>

using FieldType = GalleryHost::Library::FieldType;

//! The gallery as a host meets it. The guard fails a widget that reads a field it does not have.
class tst_Gallery : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isDescribed();
    void draws_data() { addWidgets(); }
    void draws();
    void standsExtremes_data() { addWidgets(); }
    void standsExtremes();
    void showsChanges_data();
    void showsChanges();
    void alarmListFollowsAlarms();
    void watchdogExpires();
    void watchdogRestsInEditor();

private:
    using Key = QPair<QString, QString>;

    void addWidgets();
    void takeWidget(GalleryHost::Library::WidgetMetaInformation &widget);

    std::unique_ptr<GalleryHost> m_host;
};

void tst_Gallery::initTestCase()
{
    startGuard();
    m_host = std::make_unique<GalleryHost>();
    QCOMPARE(takeLog().size(), 1); // that it was loaded
}

void tst_Gallery::isDescribed()
{
    const auto &library = m_host->library();
    QCOMPARE(library.widgets().size(), 12);
    QCOMPARE(library.widgetsLatestVersion()[QStringLiteral("gauge")].version().version(),
             QStringLiteral("1.1.0"));
    QCOMPARE(library.pageWidgetsGalleryGroups().size(), 2);
    QVERIFY(library.pageWidgetsDefaultGalleryGroupIsUsed());
    QVERIFY(library.projectWidgetsDefaultGalleryGroupIsUsed());
    QSet<int> types;
    for (const auto &widget : library.widgets()) {
        QCOMPARE(widget.display().keys().size(), 3);
        for (const auto &field : widget.fields()) {
            types.insert(field.type());
            QVERIFY2(field.display().keys().size() == 3, qPrintable(field.id()));
        }
    }
    QCOMPARE(types.size(), int(FieldType::Trend));
}

void tst_Gallery::addWidgets()
{
    QTest::addColumn<Key>("key");
    const auto &widgets = m_host->library().widgets();
    for (auto it = widgets.begin(); it != widgets.end(); ++it) {
        if (it->showInPageGallery())
            QTest::addRow("%s %s", qPrintable(it.key().first), qPrintable(it.key().second))
                << it.key();
    }
}

void tst_Gallery::takeWidget(GalleryHost::Library::WidgetMetaInformation &widget)
{
    QFETCH(Key, key);
    widget = m_host->library().widgets()[key];
}

//! The number of pixels that are not white, inside an area or outside of it.
static int inkedPixels(const QImage &image, const QRect &area, bool inside)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (area.contains(x, y) == inside && image.pixelColor(x, y) != QColor(Qt::white))
                ++count;
        }
    }
    return count;
}

void tst_Gallery::draws()
{
    GalleryHost::Library::WidgetMetaInformation widget;
    takeWidget(widget);
    QVERIFY(m_host->place(widget));
    const QImage image = m_host->grab(widget.defaultSize());
    const int margin = GalleryHost::margin;
    const QRect area = image.rect().adjusted(margin, margin, -margin, -margin);
    QVERIFY(inkedPixels(image, area, true) > 50);
    QCOMPARE(inkedPixels(image, area, false), 0);
}

void tst_Gallery::standsExtremes()
{
    GalleryHost::Library::WidgetMetaInformation widget;
    takeWidget(widget);
    using Double = std::numeric_limits<double>;
    for (double extreme : {-Double::infinity(), -1e9, -1.0, 0.0, 0.5, 1e9, Double::max(),
                           Double::infinity(), Double::quiet_NaN()}) {
        QVariantMap values;
        for (const auto &field : widget.fields()) {
            const int type = field.type();
            if (type == FieldType::Double)
                values.insert(field.id(), extreme);
            else if (type == FieldType::Integer || type == FieldType::Option)
                values.insert(field.id(), int(qBound(-1e9, extreme, 1e9)));
        }
        QVERIFY(m_host->place(widget, values));
        for (const QSizeF &size : {QSizeF(0, 0), QSizeF(0.5, 100), QSizeF(100, 1), QSizeF(60, 60)})
            QVERIFY(!m_host->grab(size).isNull());
    }
}

void tst_Gallery::showsChanges_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QVariantMap>("start");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char *widget, const char *field, const QVariant &value,
                        const QVariantMap &start = {}) {
        QTest::addRow("%s.%s", widget, field)
            << QString::fromLatin1(widget) << start << QString::fromLatin1(field) << value;
    };
    const auto map = [](const char *field, const QVariant &value) {
        return QVariantMap{{QString::fromLatin1(field), value}};
    };
    row("gauge", "value", 50);
    row("gauge", "needleStyle", 2, map("value", 50));
    row("gauge", "setpoint", 20, map("showSetpoint", true));
    row("gauge", "title", QStringLiteral("Boiler"));
    row("bar", "value", 50);
    row("bar", "direction", 2, map("value", 20));
    row("bar", "origin", 50, map("value", 60));
    row("numericDisplay", "value", 50);
    row("numericDisplay", "unit", QStringLiteral("bar"));
    row("lamp", "state", 2);
    row("lamp", "shape", 1);
    row("numericInput", "value", 50);
    row("numericInput", "minimum", -10); // the minus button comes to life
    row("pushButton", "value", true);
    row("pushButton", "enabled", false);
    row("selector", "value", 2);
    row("selector", "firstNumber", -1);
    row("label", "text", QStringLiteral("Pump"));
    row("label", "horizontalAlignment", 2);
    row("trendChart", "maximum", 7);
    row("trendChart", "pen1", QStringLiteral("level")); // the legend names it
    row("alarmList", "emptyText", QStringLiteral("-"));
}

void tst_Gallery::showsChanges()
{
    QFETCH(QString, widget);
    QFETCH(QVariantMap, start);
    QFETCH(QString, field);
    QFETCH(QVariant, value);
    const auto description = m_host->library().widgetsLatestVersion()[widget];
    NARV::WidgetPrivate *placed = m_host->place(description, start);
    const QImage before = m_host->grab(description.defaultSize());
    placed->setFieldValue(field, value, true, true);
    QVERIFY(m_host->grab(description.defaultSize()) != before);
}

void tst_Gallery::alarmListFollowsAlarms()
{
    m_host->alarms.clear();
    NARV::WidgetPrivate *list = m_host->place("alarmList");
    const QSizeF size(700, 300);
    const QImage empty = m_host->grab(size);
    const auto count = [list] { return list->fieldValues[QStringLiteral("alarmCount")].toInt(); };
    QCOMPARE(count(), 0);

    m_host->alarmQueries = 0;
    for (int i = 0; i < 100; ++i) {
        NARV::AlarmInfoData data;
        data.name = QString::number(i);
        data.state = NARV::AlarmInfo::StateTriggered;
        m_host->alarms.append(NARV::AlarmInfo(data));
        list->alarmEvent(m_host->alarms.last());
    }
    QTRY_COMPARE(count(), 100);
    QCOMPARE(m_host->alarmQueries, 1);
    QVERIFY(m_host->grab(size) != empty);

    list->setFieldValue(QStringLiteral("lowestSeverity"), 6, true, true);
    QTRY_COMPARE(count(), 0);
    QCOMPARE(m_host->grab(size), empty);
    list->deinit();
}

static const QVariantMap impatient{{QStringLiteral("timeout"), 2},
                                   {QStringLiteral("warningTime"), 1}};

void tst_Gallery::watchdogExpires()
{
    NARV::WidgetPrivate *watchdog = m_host->place("sessionWatchdog", impatient);
    QSignalSpy changes(watchdog, &NARV::WidgetPrivate::fieldIsChanged);
    const auto value = [watchdog](const char *id) {
        return watchdog->fieldValues[QLatin1String(id)];
    };
    QTRY_VERIFY(value("warning").toBool());
    QVERIFY(!value("expired").toBool());
    QTRY_VERIFY(value("expired").toBool());
    QVERIFY(!value("warning").toBool());
    QCOMPARE(value("statusText").toString(), QString::fromUtf8("Sitzung abgelaufen"));

    QTest::mouseClick(std::make_unique<QWidget>().get(), Qt::LeftButton);
    QTRY_VERIFY(!value("expired").toBool());
    QVERIFY(value("idleTime").toInt() < 2);

    watchdog->deinit();
    changes.clear();
    QVERIFY(!changes.wait(1100));
}

void tst_Gallery::watchdogRestsInEditor()
{
    m_host->isEditor = true;
    QSignalSpy changes(m_host->place("sessionWatchdog", impatient),
                       &NARV::WidgetPrivate::fieldIsChanged);
    QVERIFY(!changes.wait(1100));
    QVERIFY(inkedPixels(m_host->grab({64, 64}), QRect(20, 20, 64, 64), true) > 50); // its icon
    m_host->isEditor = false;
}

QTEST_MAIN(tst_Gallery)
#include "tst_gallery.moc"
