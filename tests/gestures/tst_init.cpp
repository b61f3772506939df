#include "guardedtest.h"

#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/Init>
#include <NARV/PanGestureRecognizer>
#include <NARV/PinchGestureRecognizer>
#include <NARV/SwipeGestureRecognizer>
#include <NARV/Widget>

#include <QIcon>

using namespace NARV;

static const struct
{
    const char *name;
    Qt::GestureType byRecognizer;
    Qt::GestureType byItem;
    int expected;
} numberRows[] = {
    {"pan 1", PanGestureRecognizer::type(1), GraphicsObject::pan1TouchGestureType(), 257},
    {"pan 2", PanGestureRecognizer::type(2), GraphicsObject::pan2TouchesGestureType(), 258},
    {"pan 3", PanGestureRecognizer::type(3), GraphicsObject::pan3TouchesGestureType(), 259},
    {"pan 0", PanGestureRecognizer::type(0), PanGestureRecognizer::type(4), 1256},
    {"swipe 1", SwipeGestureRecognizer::type(1), GraphicsObject::swipe1TouchGestureType(), 260},
    {"swipe 2", SwipeGestureRecognizer::type(2), GraphicsObject::swipe2TouchesGestureType(), 261},
    {"swipe 3", SwipeGestureRecognizer::type(3), GraphicsObject::swipe3TouchesGestureType(), 262},
    {"swipe 4", SwipeGestureRecognizer::type(4), SwipeGestureRecognizer::type(-1), 1256},
    {"pinch", PinchGestureRecognizer::type(), GraphicsObject::pinchGestureType(), 263},
};

class tst_Init : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data() { addRows(numberRows); }
    void numbers();
    void onlyTheFirstCallCounts();
};

void tst_Init::numbers()
{
    const auto &row = currentRow(numberRows);
    QCOMPARE(int(row.byRecognizer), row.expected);
    QCOMPARE(int(row.byItem), row.expected);
}

static QIcon icon(Qt::GlobalColor color)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(color);
    return pixmap;
}

//! Takes the next number of the toolkit.
class NextRecognizer : public QGestureRecognizer
{
public:
    Result recognize(QGesture *, QObject *, QEvent *) override { return Ignore; }
};

void tst_Init::onlyTheFirstCallCounts()
{
    const WidgetData data(QStringLiteral("pad"), {1, 0, 0}, QString(), {}, nullptr, nullptr);
    Widget widget(data);
    QVERIFY(widget.icon().isNull());
    for (const auto color : {Qt::red, Qt::blue}) {
        INTERNAL::narvInit(icon(color));
        QCOMPARE(widget.icon().pixmap(8).toImage().pixelColor(4, 4), QColor(Qt::red));
    }
    // The toolkit gave 257 to 263 in the one call and nothing in the other.
    QCOMPARE(int(QGestureRecognizer::registerRecognizer(new NextRecognizer)), 264);
    QVERIFY(takeLog().isEmpty());
}

QTEST_MAIN(tst_Init)
#include "tst_init.moc"
