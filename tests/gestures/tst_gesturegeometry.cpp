#include "guardedtest.h"

#include "gestures/gesturegeometry_p.h"

#include <limits>

using namespace NARV::INTERNAL;

static const qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
static const qreal infinity = std::numeric_limits<qreal>::infinity();

static const struct
{
    const char *name;
    bool isTrue;
    bool expected;
} limitRows[] = {
    {"10 of 10", exceeds({10, -10}, 10), false},
    {"more to the right", exceeds({10.5, 0}, 10), true},
    {"more upwards", exceeds({0, -10.5}, 10), true},
    {"far, but along no axis", exceeds({9, 9}, 10), false},
    {"no number", exceeds({notANumber, notANumber}, 10), false},
    {"twice the distance", isPlausibleScale(2), true},
    {"more than twice", isPlausibleScale(2.01), false},
    {"a tenth", isPlausibleScale(0.1), true},
    {"less than a tenth", isPlausibleScale(0.09), false},
    {"no distance before", isPlausibleScale(infinity), false},
    {"no distance at all", isPlausibleScale(notANumber), false},
};

static const struct
{
    const char *name;
    QPointF to;
    qreal angle;
    qreal length;
} wayRows[] = {
    {"right", {1, 0}, 0, 1},
    {"up", {0, -2}, 90, 2},
    {"left", {-1, 0}, 180, 1},
    {"down", {0, 1}, -90, 1},
    {"right and down", {3, 3}, -45, std::sqrt(18.0)},
    {"left and down", {-1, 1}, -135, std::sqrt(2.0)},
};

static const struct
{
    const char *name;
    FingerPoints from;
    FingerPoints to;
    QPointF expected;
} movementRows[] = {
    {"no finger", {}, {}, {0, 0}},
    {"one", {{{{1, 2}}}, 1}, {{{{4, 8}}}, 1}, {3, 6}},
    {"opposite", {{{{0, 0}, {10, 0}}}, 2}, {{{{-5, 0}, {19, 0}}}, 2}, {2, 0}},
    {"three", {{{{0, 0}, {7, 0}, {9, 9}}}, 3}, {{{{50, 1}, {57, 2}, {59, 12}}}, 3}, {50, 2}},
};

class tst_GestureGeometry : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void limits_data() { addRows(limitRows); }
    void limits() { QCOMPARE(currentRow(limitRows).isTrue, currentRow(limitRows).expected); }
    void ways_data() { addRows(wayRows); }
    void ways();
    void meanMovement_data() { addRows(movementRows); }
    void meanMovement();
};

void tst_GestureGeometry::ways()
{
    const auto &row = currentRow(wayRows);
    QCOMPARE(signedAngle(QLineF({}, row.to)), row.angle);
    QCOMPARE(length(row.to), row.length);
}

void tst_GestureGeometry::meanMovement()
{
    const auto &row = currentRow(movementRows);
    QCOMPARE(mean(row.to - row.from), row.expected);
}

QTEST_APPLESS_MAIN(tst_GestureGeometry)
#include "tst_gesturegeometry.moc"
