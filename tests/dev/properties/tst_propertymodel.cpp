#include "fieldsource.h"
#include "guardedtest.h"

#include "properties/propertyfilter.h"
#include "properties/propertymodel.h"

#include <QAbstractItemModelTester>
#include <QFont>
#include <QSignalSpy>

using namespace NARV::DEV;
using Text = NARV::INTERNAL::PluginMetaInformation::TranslationStringType;

static const QByteArray fonts = "'displayFontFamily':'Family','displayFontSize':'Size',"
                                "'displayFontBold':'Bold','displayFontStyle':'Style',"
                                "'displayFontUnderline':'Underline'";

static const QByteArray fields =
    "[{'id':'limit','type':'integer','display':'Limit','group':'Range','defaultValue':5,"
    "  'minimum':0,'maximum':10,'tagCanBeAttached':true},"
    " {'id':'show','type':'bool','display':'Show','defaultValue':true},"
    " {'id':'mark','type':'string','display':'Mark','group':'Marks','defaultValue':'',"
    "  'requirements':'show==true'},"
    " {'id':'state','type':'double','display':'State','readOnly':true,'defaultValue':1.5},"
    " {'id':'secret','type':'integer','display':'Secret','private':true,'group':'Inner',"
    "  'defaultValue':0},"
    " {'id':'label','type':'string','display':'Label','multiLanguage':true,"
    "  'defaultValue':'Hello'," +
    fonts +
    "},"
    " {'id':'lines','type':'stringList','display':'Lines','multiLanguage':true,"
    "  'defaultValue':['a','b','c']," +
    fonts +
    "},"
    " {'id':'names','type':'stringMap','display':'Names',"
    "  'defaultValue':[{'id':1,'value':'one'},{'id':4,'value':'four'}]}]";

class tst_PropertyModel : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void structure();
    void privateFields();
    void valuesAreBounded();
    void readOnlyFields();
    void changedAndReset();
    void requirementsHideRows();
    void search();
    void partsOfValues();
    void languagesOfAList();
    void entries();
    void keysOfAMap();
    void geometry();
    void bindings();

private:
    struct Tree
    {
        FieldSource source{fields};
        PropertyModel model{source};
        QAbstractItemModelTester tester{&model};
        QModelIndex part(const char *id, int row, int column = PropertyModel::ValueColumn) const
        {
            return model.index(row, column, model.indexOf(u(id), PropertyModel::NameColumn));
        }
        QString text(const char *id) const { return model.indexOf(u(id)).data().toString(); }
        bool set(const char *id, const QVariant &value)
        {
            return model.setData(model.indexOf(u(id)), value, Qt::EditRole);
        }
    };
};

static QStringList names(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    QStringList names;
    for (int row = 0; row < model.rowCount(parent); ++row)
        names += model.index(row, 0, parent).data().toString();
    return names;
}

void tst_PropertyModel::structure()
{
    Tree tree;
    QCOMPARE(names(tree.model), u("Geometry,General,Marks,Range").split(u(",")));
    QCOMPARE(names(tree.model, tree.model.index(1, 0)),
             u("Label,Label: font,Lines,Lines: font,Names,Show,State").split(u(",")));
    QCOMPARE(names(tree.model, tree.model.indexOf(u("label"), 0)), u("en-US,it-IT").split(u(",")));
    QCOMPARE(names(tree.model, tree.model.indexOf(u("label.font"), 0)),
             u("Family,Size,Bold,Style,Underline").split(u(",")));
    QCOMPARE(names(tree.model, tree.model.indexOf(u("names"), 0)), u("1,4").split(u(",")));
    QCOMPARE(names(tree.model, tree.part("lines", 0, 0)), u("en-US,it-IT").split(u(",")));
    tree.source.isSelected = false;
    Q_EMIT tree.source.replaced();
    QCOMPARE(tree.model.rowCount(), 0);
}

void tst_PropertyModel::privateFields()
{
    Tree tree;
    QVERIFY(!tree.model.indexOf(u("secret")).isValid());
    tree.model.setShowPrivate(true);
    QVERIFY(tree.model.indexOf(u("secret")).isValid());
    QVERIFY(names(tree.model).contains(u("Inner")));
}

void tst_PropertyModel::valuesAreBounded()
{
    Tree tree;
    QSignalSpy notices(&tree.model, &PropertyModel::notice);
    QVERIFY(tree.set("limit", 7));
    QCOMPARE(notices.size(), 0);
    QVERIFY(tree.set("limit", 11));
    QCOMPARE(tree.source.value(0, u("limit")), QVariant(10));
    QCOMPARE(notices.size(), 1);
    QVERIFY(tree.set("limit", -1));
    QCOMPARE(tree.source.value(0, u("limit")), QVariant(0));
    const QString tip = tree.model.indexOf(u("limit")).data(Qt::ToolTipRole).toString();
    for (const char *fact : {"Limit", "integer", "0 … 10", "Default: 5"})
        QVERIFY2(tip.contains(u(fact)), fact);
}

void tst_PropertyModel::readOnlyFields()
{
    Tree tree;
    const QModelIndex state = tree.model.indexOf(u("state"));
    QVERIFY(!(state.flags() & Qt::ItemIsEditable));
    QVERIFY(!tree.set("state", 3));
    tree.model.reset(state);
    tree.source.write(u("state"), 2.25); // as the widget does
    QCOMPARE(tree.text("state"), u("2.25"));
    for (const char *number : {"88.3308 88.3308108213", "1234568 1234567.890625"}) {
        const QStringList texts = u(number).split(u(" "));
        tree.source.write(u("state"), texts[1].toDouble());
        QCOMPARE(tree.text("state"), texts[0]);
        QCOMPARE(state.data(Qt::EditRole).toDouble(), texts[1].toDouble());
    }
    tree.source.write(u("state"), 2.25);
    tree.model.reset(state);
    QCOMPARE(tree.text("state"), u("2.25"));
}

void tst_PropertyModel::changedAndReset()
{
    Tree tree;
    const QModelIndex limit = tree.model.indexOf(u("limit"));
    const auto isBold = [](const QModelIndex &index) {
        return index.data(Qt::FontRole).value<QFont>().bold();
    };
    QVERIFY(!isBold(limit));
    QVERIFY(tree.set("limit", 6));
    QVERIFY(isBold(limit));
    QVERIFY(tree.model.setData(tree.part("label.font", 2), Qt::Checked, Qt::CheckStateRole));
    QVERIFY(tree.source.value(0, u("label.font")).value<QFont>().bold());
    QVERIFY(isBold(tree.part("label.font", 2)));
    QVERIFY(!isBold(tree.part("label.font", 1)));
    tree.model.reset(tree.part("label.font", 2));
    QVERIFY(!tree.source.isChanged(0, u("label.font")));
    const QString tip = tree.model.indexOf(u("label.font")).data(Qt::ToolTipRole).toString();
    for (const char *fact : {"Label: font", "label.font", "Default: Roboto, 10"})
        QVERIFY2(tip.contains(u(fact)), qPrintable(tip));
    tree.model.reset(limit);
    QCOMPARE(tree.text("limit"), u("5"));
    QVERIFY(!isBold(limit));
}

void tst_PropertyModel::requirementsHideRows()
{
    Tree tree;
    PropertyFilter filter;
    filter.setSourceModel(&tree.model);
    QVERIFY(names(filter).contains(u("Marks")));
    QVERIFY(tree.set("show", false));
    QVERIFY(!names(filter).contains(u("Marks")));
    QCOMPARE(tree.model.reason(u("mark")), u("\"show\" is \"false\", not \"true\""));
    filter.setShowHidden(true);
    QVERIFY(names(filter).contains(u("Marks")));
    QVERIFY(
        tree.model.indexOf(u("mark")).data(Qt::ToolTipRole).toString().startsWith(u("<i>Hidden:")));
    filter.setShowHidden(false);
    tree.source.reset({u("show")});
    QVERIFY(names(filter).contains(u("Marks")));
}

void tst_PropertyModel::search()
{
    Tree tree;
    PropertyFilter filter;
    filter.setSourceModel(&tree.model);
    const QStringList all = names(filter);
    filter.setWords(u(" lIMit"));
    QCOMPARE(names(filter), QStringList(u("Range")));
    filter.setWords(u("general"));
    QCOMPARE(filter.rowCount(filter.index(0, 0)), 7);
    filter.setWords(u("no such field"));
    QCOMPARE(filter.rowCount(), 0);
    filter.setWords({});
    QCOMPARE(names(filter), all);
}

void tst_PropertyModel::partsOfValues()
{
    Tree tree;
    QVERIFY(tree.set("label", u("Hi"))); // in the language of the tree
    QVERIFY(tree.model.setData(tree.part("label", 1), u("Ciao"), Qt::EditRole));
    const auto text = tree.source.value(0, u("label")).value<Text>();
    QCOMPARE(text.get(u("en-US"), false), u("Hi"));
    QCOMPARE(text.get(u("it-IT"), false), u("Ciao"));
    QVERIFY(tree.model.setData(tree.part("label.font", 1), 0, Qt::EditRole));
    QCOMPARE(tree.source.value(0, u("label.font")).value<QFont>().pointSize(), 1);
}

// What is typed as lines in one language takes the other languages along.
void tst_PropertyModel::languagesOfAList()
{
    Tree tree;
    const QModelIndex second = tree.part("lines", 1, 0);
    QVERIFY(tree.model.setData(tree.model.index(1, 1, second), u("due"), Qt::EditRole));
    QVERIFY(tree.set("lines", QStringList({u("new"), u("c"), u("b")})));
    const auto texts = tree.source.value(0, u("lines")).value<QList<Text>>();
    QCOMPARE(inLanguage(QVariant::fromValue(texts), u("en-US")).toStringList(),
             QStringList({u("new"), u("c"), u("b")}));
    QCOMPARE(texts[2].get(u("it-IT"), false), u("due"));
    QVERIFY(!texts[0].contains(u("it-IT")));
}

void tst_PropertyModel::entries()
{
    Tree tree;
    tree.model.moveEntry(tree.part("lines", 0), 1);
    QCOMPARE(tree.text("lines"), u("b, a, c"));
    tree.model.moveEntry(tree.part("lines", 2), 1); // is the last one already
    tree.model.removeEntry(tree.part("lines", 1));
    QCOMPARE(tree.text("lines"), u("b, c"));
    tree.model.addEntry(tree.part("lines", 0));
    QVERIFY(tree.model.setData(tree.part("lines", 1), u("x"), Qt::EditRole));
    QCOMPARE(tree.text("lines"), u("b, x, c"));
    tree.model.removeEntry(tree.model.indexOf(u("limit"))); // no entry at all
    QCOMPARE(tree.text("limit"), u("5"));
    tree.model.reset(tree.part("lines", 1));
    QCOMPARE(tree.text("lines"), u("a, b, c"));
}

void tst_PropertyModel::keysOfAMap()
{
    Tree tree;
    QSignalSpy notices(&tree.model, &PropertyModel::notice);
    const QModelIndex first = tree.part("names", 0, PropertyModel::NameColumn);
    QVERIFY(!tree.model.setData(first, 4, Qt::EditRole));
    QCOMPARE(notices.size(), 1);
    QVERIFY(tree.model.setData(first, 7, Qt::EditRole));
    QCOMPARE(tree.text("names"), u("4: four, 7: one"));
    tree.model.addEntry(tree.model.indexOf(u("names")));
    QCOMPARE(tree.text("names"), u("4: four, 7: one, 8: "));
}

void tst_PropertyModel::geometry()
{
    Tree tree;
    const auto set = [&tree](int row, double number) {
        const QModelIndex group = tree.model.index(0, 0);
        return tree.model.setData(tree.model.index(row, 1, group), number, Qt::EditRole);
    };
    QSignalSpy notices(&tree.model, &PropertyModel::notice);
    for (int row = 0; row < 5; ++row)
        QVERIFY(set(row, row * 1.5));
    QCOMPARE(tree.source.place.position, QPointF(0, 1.5));
    QCOMPARE(tree.source.place.size, QSizeF(3, 4.5));
    QCOMPARE(tree.source.place.rotation, 6.0);
    QVERIFY(set(2, -20));
    QCOMPARE(tree.source.place.size.width(), 1.0);
    QCOMPARE(notices.size(), 1);
}

void tst_PropertyModel::bindings()
{
    Tree tree;
    const QModelIndex tag = tree.model.indexOf(u("limit"), PropertyModel::TagColumn);
    QVERIFY(tree.model.setData(tag, u("level"), Qt::EditRole));
    QCOMPARE(tree.source.binding(0, u("limit")), u("level"));
    QCOMPARE(tag.data(PropertyModel::KindRole).value<ValueKind>().choices.size(), 3);
    const QModelIndex other = tree.model.indexOf(u("show"), PropertyModel::TagColumn);
    QVERIFY(!tree.model.setData(other, u("level"), Qt::EditRole));
}

QTEST_MAIN(tst_PropertyModel)

#include "tst_propertymodel.moc"
