#include "guardedtest.h"

#include "gestures/gesturegeometry_p.h"

#include <limits>

using namespace NARV::INTERNAL;

static const qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
static const qreal infinity = std::numeric_limits<qreal>::infinity();

class tst_GestureGeometry : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void meanMovement_data();
    void meanMovement();
    void limits_data();
    void limits();
    void angles_data();
    void angles();
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
    {"two", {{{{0, 0}, {10, 10}}}, 2}, {{{{4, 0}, {20, 10}}}, 2}, {7, 0}},
    {"opposite", {{{{0, 0}, {10, 0}}}, 2}, {{{{-5, 0}, {15, 0}}}, 2}, {0, 0}},
    {"three", {{{{0, 0}, {7, 0}, {9, 9}}}, 3}, {{{{50, 1}, {57, 2}, {59, 12}}}, 3}, {50, 2}},
};

void tst_GestureGeometry::meanMovement_data()
{
    addRows(movementRows);
}

void tst_GestureGeometry::meanMovement()
{
    const auto &row = currentRow(movementRows);
    QCOMPARE(mean(row.to - row.from), row.expected);
}

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

void tst_GestureGeometry::limits_data()
{
    addRows(limitRows);
}

void tst_GestureGeometry::limits()
{
    const auto &row = currentRow(limitRows);
    QCOMPARE(row.isTrue, row.expected);
}

static const struct
{
    const char *name;
    QPointF to;
    qreal expected;
} angleRows[] = {
    {"right", {1, 0}, 0},
    {"up", {0, -1}, 90},
    {"left", {-1, 0}, 180},
    {"down", {0, 1}, -90},
    {"right and down", {1, 1}, -45},
    {"left and down", {-1, 1}, -135},
};

void tst_GestureGeometry::angles_data()
{
    addRows(angleRows);
}

void tst_GestureGeometry::angles()
{
    const auto &row = currentRow(angleRows);
    QCOMPARE(signedAngle(QLineF({}, row.to)), row.expected);
}

QTEST_APPLESS_MAIN(tst_GestureGeometry)
#include "tst_gesturegeometry.moc"
