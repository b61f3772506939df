#include "galleryhost.h"
#include "guardedtest.h"

#include <QSignalSpy>
#include <QtTest>

#include <limits>

using FieldType = GalleryHost::Library::FieldType;

static const struct
{
    const char *name; // of the widget, and of the field that is set
    QVariant value;
    QVariantMap start = {};
} changeRows[] = {
    {"gauge.value", 20},
    {"gauge.needleStyle", 2, {{u("value"), 50}}},
    {"gauge.setpoint", 20, {{u("showSetpoint"), true}}},
    {"gauge.title", u("Boiler")},
    {"bar.value", 20},
    {"bar.direction", 2, {{u("value"), 20}}},
    {"bar.origin", 50, {{u("value"), 60}}},
    {"numericDisplay.value", 20},
    {"numericDisplay.unit", u("bar")},
    {"lamp.state", 2},
    {"lamp.shape", 1},
    {"numericInput.value", 50},
    {"numericInput.minimum", -10}, // the minus button comes to life
    {"pushButton.value", true},
    {"pushButton.enabled", false},
    {"selector.value", 2},
    {"selector.firstNumber", -1},
    {"label.text", u("Pump")},
    {"label.horizontalAlignment", 2},
    {"trendChart.maximum", 7},
    {"trendChart.pen1", u("level")}, // the legend names it
    {"alarmList.emptyText", u("-")},
};

//! The gallery as a host meets it. The guard fails a widget that reads a field it does not have.
class tst_Gallery : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isDescribed();
    void draws_data();
    void draws();
    void showsChanges_data() { addRows(changeRows); }
    void showsChanges();
    void alarmListFollowsAlarms();
    void watchdogExpires();
    void watchdogRestsInEditor();

private:
    GalleryHost::Key latest(const QString &id) const
    {
        return {id, m_host->library().widgetsLatestVersion()[id].version().version()};
    }

    std::unique_ptr<GalleryHost> m_host;
};

void tst_Gallery::initTestCase()
{
    startGuard();
    m_host = std::make_unique<GalleryHost>();
    QCOMPARE(takeLog().size(), 1); // that it was loaded
}

// In all languages, and with a field of every type.
void tst_Gallery::isDescribed()
{
    QSet<int> types;
    for (const auto &widget : m_host->library().widgets()) {
        QCOMPARE(widget.display().keys().size(), 3);
        for (const auto &field : widget.fields()) {
            types.insert(field.type());
            QVERIFY2(field.display().keys().size() == 3, qPrintable(field.id()));
        }
    }
    QCOMPARE(types.size(), int(FieldType::Trend));
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

void tst_Gallery::draws_data()
{
    QTest::addColumn<GalleryHost::Key>("key");
    for (const auto &widget : m_host->library().widgets()) {
        const GalleryHost::Key key(widget.id(), widget.version().version());
        if (widget.showInPageGallery())
            QTest::addRow("%s %s", qPrintable(key.first), qPrintable(key.second)) << key;
    }
}

// Inside its borders, and whatever the values and the size.
void tst_Gallery::draws()
{
    QFETCH(GalleryHost::Key, key);
    QVERIFY(m_host->place(key));
    const QImage image = m_host->grab();
    const int margin = GalleryHost::margin;
    const QRect area = image.rect().adjusted(margin, margin, -margin, -margin);
    QVERIFY(inkedPixels(image, area, true) > 50);
    QCOMPARE(inkedPixels(image, area, false), 0);

    const auto fields = m_host->library().widgets()[key].fields();
    using Double = std::numeric_limits<double>;
    for (double extreme : {-Double::infinity(), -1e9, -1.0, 0.0, 0.5, 1e9, Double::max(),
                           Double::infinity(), Double::quiet_NaN()}) {
        QVariantMap values;
        for (const auto &field : fields) {
            if (field.type() == FieldType::Double)
                values.insert(field.id(), extreme);
            else if (field.type() == FieldType::Integer || field.type() == FieldType::Option)
                values.insert(field.id(), int(qBound(-1e9, extreme, 1e9)));
        }
        QVERIFY(m_host->place(key, values));
        for (const QSizeF &size : {QSizeF(0, 0), QSizeF(0.5, 100), QSizeF(100, 1), QSizeF(60, 60)})
            QVERIFY(!m_host->grab(size).isNull());
    }
}

void tst_Gallery::showsChanges()
{
    const auto &row = currentRow(changeRows);
    const QStringList ids = u(row.name).split(QLatin1Char('.'));
    NARV::WidgetPrivate *widget = m_host->place(latest(ids[0]), row.start);
    const QImage before = m_host->grab();
    widget->setFieldValue(ids[1], row.value, true, true);
    QVERIFY(m_host->grab() != before);
}

void tst_Gallery::alarmListFollowsAlarms()
{
    m_host->alarms.clear();
    NARV::WidgetPrivate *list = m_host->place(latest(u("alarmList")));
    const QSizeF size(700, 300);
    const QImage empty = m_host->grab(size);
    const auto count = [list] { return list->fieldValues[u("alarmCount")].toInt(); };
    QCOMPARE(count(), 0);

    m_host->calls.clear();
    for (int i = 0; i < 100; ++i) {
        NARV::AlarmInfoData data;
        data.name = QString::number(i);
        data.state = NARV::AlarmInfo::StateTriggered;
        m_host->alarms.append(NARV::AlarmInfo(data));
        list->alarmEvent(m_host->alarms.last());
    }
    QTRY_COMPARE(count(), 100);
    QCOMPARE(m_host->calls, QStringList{u("alarms")});
    QVERIFY(m_host->grab(size) != empty);

    list->setFieldValue(u("lowestSeverity"), 6, true, true);
    QTRY_COMPARE(count(), 0);
    QCOMPARE(m_host->grab(size), empty);
    list->deinit();
}

static const QVariantMap impatient{{u("timeout"), 2}, {u("warningTime"), 1}};

void tst_Gallery::watchdogExpires()
{
    NARV::WidgetPrivate *watchdog = m_host->place(latest(u("sessionWatchdog")), impatient);
    QSignalSpy changes(watchdog, &NARV::WidgetPrivate::fieldIsChanged);
    const auto value = [watchdog](const char *id) {
        return watchdog->fieldValues[QLatin1String(id)];
    };
    QTRY_VERIFY(value("warning").toBool());
    QVERIFY(!value("expired").toBool());
    QTRY_VERIFY(value("expired").toBool());
    QVERIFY(!value("warning").toBool());
    QCOMPARE(value("statusText").toString(), u("Sitzung abgelaufen"));

    QTest::mouseClick(std::make_unique<QWidget>().get(), Qt::LeftButton);
    QTRY_VERIFY(!value("expired").toBool());
    QVERIFY(value("idleTime").toInt() < 2);

    watchdog->deinit();
    changes.clear();
    QVERIFY(!changes.wait(1100));
}

void tst_Gallery::watchdogRestsInEditor()
{
    m_host->insideProjectEditor = true;
    QSignalSpy changes(m_host->place(latest(u("sessionWatchdog")), impatient),
                       &NARV::WidgetPrivate::fieldIsChanged);
    QVERIFY(!changes.wait(1100));
    QVERIFY(inkedPixels(m_host->grab({64, 64}), QRect(20, 20, 64, 64), true) > 50); // its icon
    m_host->insideProjectEditor = false;
}

QTEST_MAIN(tst_Gallery)
#include "tst_gallery.moc"
