#include "guardedtest.h"

#include "scene/arrangement.h"
#include "scene/handlegeometry.h"
#include "scene/jsonposition.h"
#include "touch/touchsimulator.h"

using namespace NARV::DEV;

class tst_PageGeometry : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void resizing_data();
    void resizing();
    void rotation_data();
    void rotation();
    void alignment();
    void rowsAndFreePlaces();
    void stacking_data();
    void stacking();
    void fingers();
    void jsonPlaces_data();
    void jsonPlaces();
};

static WidgetState widget(const QRectF &rect, double rotation = 0, const QString &name = {})
{
    WidgetState state;
    state.name = name;
    state.position = rect.topLeft();
    state.size = rect.size();
    state.rotation = rotation;
    return state;
}

static const struct
{
    const char *name;
    double rotation;
    Handle handle;
    QPointF moveBy; //!< of the handle, in scene units
    bool keepRatio;
    QSizeF size;
} resizeRows[] = {
    {"right side", 0, {1, 0}, {30, 50}, false, {130, 60}},
    {"top left", 0, {-1, -1}, {-10, 20}, false, {110, 40}},
    {"past the other side", 0, {1, 0}, {-500, 0}, false, {1, 60}},
    {"proportions", 0, {1, 1}, {100, 0}, true, {200, 120}},
    {"upright", 90, {1, 0}, {0, 25}, false, {125, 60}},
    {"upside down", 180, {0, 1}, {0, -14}, false, {100, 74}},
    {"slanted", 30, {-1, 0}, {0, 0}, false, {100, 60}},
};

void tst_PageGeometry::resizing_data()
{
    addRows(resizeRows);
}

// Whatever the rotation, the point opposite to the handle stays where it is.
void tst_PageGeometry::resizing()
{
    const auto &row = currentRow(resizeRows);
    const WidgetState before = widget({50, 80, 100, 60}, row.rotation);
    const Handle opposite{-row.handle.horizontal, -row.handle.vertical};
    const QPointF point = handlePosition(before, row.handle, 0) + row.moveBy;
    const WidgetState after = resized(before, row.handle, point, row.keepRatio);
    QCOMPARE(after.size, row.size);
    const QPointF drift = handlePosition(after, opposite, 0) - handlePosition(before, opposite, 0);
    QVERIFY(drift.manhattanLength() < 1e-9);
}

static const struct
{
    const char *name;
    QPointF point; //!< from the centre
    bool snap;
    double degrees;
} rotationRows[] = {
    {"up", {0, -10}, false, 0},       {"right", {10, 0}, false, 90},
    {"down", {0, 10}, false, 180},    {"left", {-10, 0}, false, -90},
    {"a little", {1, -10}, false, 6}, {"snaps", {1, -10}, true, 0},
    {"snaps on", {2, -10}, true, 15}, {"almost down", {-0.001, 10}, false, 180},
};

void tst_PageGeometry::rotation_data()
{
    addRows(rotationRows);
}

void tst_PageGeometry::rotation()
{
    const auto &row = currentRow(rotationRows);
    const WidgetState before = widget({50, 80, 100, 60}, 45);
    const WidgetState after = rotated(before, centreOf(before) + row.point, row.snap);
    QCOMPARE(after.rotation, row.degrees);
    QCOMPARE(after.position, before.position);
}

// A widget on its side is aligned by what one sees of it.
void tst_PageGeometry::alignment()
{
    const QList<WidgetState> states = {widget({0, 0, 100, 20}, 90), widget({200, 50, 50, 50})};
    const auto positions = [&](Qt::AlignmentFlag flag) {
        QList<QPointF> list;
        for (const WidgetState &state : aligned(states, flag))
            list += state.position;
        return list;
    };
    QCOMPARE(positions(Qt::AlignLeft), QList<QPointF>({{0, 0}, {40, 50}}));
    QCOMPARE(positions(Qt::AlignRight), QList<QPointF>({{190, 0}, {200, 50}}));
    QCOMPARE(positions(Qt::AlignTop), QList<QPointF>({{0, 0}, {200, -40}}));
    QCOMPARE(positions(Qt::AlignVCenter), QList<QPointF>({{0, 20}, {200, 5}}));
}

void tst_PageGeometry::rowsAndFreePlaces()
{
    QSizeF room;
    const WidgetState one = widget({0, 0, 100, 40});
    const QList<WidgetState> states = inRows({one, one, one}, 300, room);
    QCOMPARE(states[1].position, QPointF(132, 16));
    QCOMPARE(states[2].position, QPointF(16, 72));
    QCOMPARE(room, QSizeF(248, 128));
    const QRectF page(0, 0, 300, 128);
    QList<QRectF> taken;
    for (const WidgetState &state : states)
        taken += QRectF(state.position, state.size);
    QCOMPARE(freeCentre({}, {100, 40}, page, {150, 60}), QPointF(150, 60));
    QCOMPARE(freeCentre(taken, {100, 40}, page, {60, 90}), QPointF(178, 84));
    QCOMPARE(freeCentre(taken, {200, 90}, page, {60, 90}), QPointF(60, 90)); // no room
}

static const struct
{
    const char *name;
    const char *moved;
    Stacking where;
    const char *order; //!< of abcd
} stackingRows[] = {
    {"up", "b", Stacking::Up, "acbd"},
    {"up together", "ab", Stacking::Up, "cabd"},
    {"up at the top", "cd", Stacking::Up, "abcd"},
    {"down", "c", Stacking::Down, "acbd"},
    {"to the top", "ac", Stacking::ToTop, "bdac"},
    {"to the bottom", "bd", Stacking::ToBottom, "bdac"},
};

void tst_PageGeometry::stacking_data()
{
    addRows(stackingRows);
}

void tst_PageGeometry::stacking()
{
    const auto &row = currentRow(stackingRows);
    const auto letters = [](const char *text) {
        return u(text).split(QString(), Qt::SkipEmptyParts);
    };
    QCOMPARE(restacked(letters("abcd"), letters(row.moved), row.where), letters(row.order));
}

// Pinching fingers stay opposite of each other about one centre.
void tst_PageGeometry::fingers()
{
    const QPointF pressed(100, 100);
    QCOMPARE(fingerPositions(3, false, pressed, {110, 90}).size(), 3);
    const QVector<QPointF> before = fingerPositions(2, true, pressed, pressed);
    const QVector<QPointF> after = fingerPositions(2, true, pressed, {140, 100});
    QCOMPARE(before[0] + before[1], after[0] + after[1]);
    QCOMPARE(QLineF(after[0], after[1]).length(), 2 * QLineF(before[0], before[1]).length());
}

static const char jsonText[] = R"({
  "a\"b": [1, {"x": "]}"}],
  "list": [ {"n": 1}, {"n": [2, 3]} ]
})";

static const struct
{
    const char *name;
    const char *path;
    const char *place;
} jsonRows[] = {
    {"root", "", "1:1"},
    {"member", "list", "3:11"},
    {"element", "list[1]", "3:23"},
    {"inner", "list[1].n[1]", "3:33"},
    {"missing member", "list[0].z", "3:13"},
    {"too far", "list[7]", "3:11"},
};

void tst_PageGeometry::jsonPlaces_data()
{
    addRows(jsonRows);
}

void tst_PageGeometry::jsonPlaces()
{
    const auto &row = currentRow(jsonRows);
    QCOMPARE(lineAndColumn(jsonText, jsonOffset(jsonText, u(row.path))), u(row.place));
}

QTEST_MAIN(tst_PageGeometry)

#include "tst_pagegeometry.moc"
