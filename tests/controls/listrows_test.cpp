// tests/controls/listrows_test.cpp: the rows of a list as data, their order on the screen, and rows packed in one text.
#include "controls/guilistlook.h"
#include "controls/guilistorder.h"
#include "controls/guilistrows.h"
#include "controls/guilistsource.h"

#include <gtest/gtest.h>
#include <string>

namespace {

guiRowTexts texts(QString const& value)
{
    guiRowTexts made;
    made.value = value;
    made.cells = {value + " text"};
    return made;
}

guiRowNumber add(guiListRows& rows, QString const& value, guiRowNumber above = kNoRow,
                 guiRowIndicator indicator = kRowPlain)
{
    return rows.add(texts(value), indicator, above);
}

/// The values under a row, in their order.
std::string valuesUnder(guiListRows const& rows, guiRowNumber above = kNoRow)
{
    std::string values;
    for (guiRowNumber const row : rows.under(above))
        values += rows.value(row).toString().toStdString();
    return values;
}

std::string shownValues(guiListRows const& rows)
{
    guiListOrder order;
    order.show(&rows);
    std::string values;
    for (int place = 0; place < order.count(); ++place) {
        EXPECT_EQ(order.placeOf(order.at(place)), place);
        values += rows.value(order.at(place)).toString().toStdString();
    }
    return values;
}

/// Rows with a value, the value of their parent, and a text.
QString packedTree(std::vector<std::pair<QString, QString>> const& tree)
{
    guiRowPacker packer(1);
    for (auto const& [value, parent] : tree) {
        packer.addState({});
        for (QString const& field : {value, value + " text", parent, QString(), QString()})
            packer.addField(field);
    }
    return packer.packed();
}

} // namespace

TEST(ListRows, AreFoundByValueWithoutRegardToCase)
{
    guiListRows rows;
    EXPECT_EQ(rows.find(u"a"), kNoRow);
    guiRowNumber const first = add(rows, "Name");
    add(rows, "NAME");
    guiRowNumber const accented = add(rows, QString::fromUtf8("Größe"));
    EXPECT_EQ(rows.find(u"name"), first);
    EXPECT_EQ(rows.find(u"GRÖSSE"), kNoRow);
    EXPECT_EQ(rows.find(u"größe"), accented);
    EXPECT_EQ(rows.find(u"nam"), kNoRow);
    EXPECT_EQ(rows.find(u""), kNoRow);
    add(rows, "");
    EXPECT_EQ(rows.find(u""), 3u);
}

TEST(ListRows, OfOneValueAreFoundInTheOrderOfTheirNumbers)
{
    guiListRows rows;
    for (int i = 0; i < 5; ++i)
        add(rows, i % 2 ? "odd" : "even");
    EXPECT_EQ(rows.find(u"odd"), 1u);
    rows.remove(0);
    EXPECT_EQ(rows.find(u"even"), 2u);
    EXPECT_EQ(add(rows, "odd"), 0u); // the hole
    EXPECT_EQ(rows.find(u"odd"), 0u);
}

TEST(ListRows, FillTheFirstHole)
{
    guiListRows rows;
    for (char const* value : {"a", "b", "c", "d"})
        add(rows, value);
    rows.remove(2);
    rows.remove(1);
    EXPECT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows.count(), 2u);
    EXPECT_EQ(add(rows, "e"), 1u);
    EXPECT_EQ(add(rows, "f"), 2u);
    EXPECT_EQ(add(rows, "g"), 4u);
    EXPECT_EQ(valuesUnder(rows), "adefg"); // at the end, wherever they are stored
    EXPECT_EQ(rows.find(u"b"), kNoRow);
}

TEST(ListRows, KnowTheirPlacesAfterOthersAreGone)
{
    guiListRows rows;
    for (int i = 0; i < 100; ++i)
        add(rows, QString::number(i));
    for (guiRowNumber row = 0; row < 100; row += 3)
        rows.remove(row);
    int place = 0;
    for (guiRowNumber const row : rows.under(kNoRow))
        EXPECT_EQ(rows.placeOf(row), place++);
    rows.putBehind(98, 1);
    EXPECT_EQ(rows.placeOf(98), 1);
    EXPECT_EQ(rows.placeOf(2), 2);
}

TEST(ListRows, LieUnderEachOtherUpToALimit)
{
    guiListRows rows;
    guiRowNumber const a = add(rows, "a");
    guiRowNumber const b = add(rows, "b", a);
    guiRowNumber const c = add(rows, "c", b);
    EXPECT_EQ(rows.levelOf(c), 2u);
    EXPECT_EQ(rows.lifted(c, 4), c);
    EXPECT_EQ(rows.lifted(c, 3), b);
    EXPECT_EQ(rows.lifted(c, 1), kNoRow);
    EXPECT_EQ(rows.lifted(kNoRow, 1), kNoRow);
    rows.move(b, kNoRow);
    EXPECT_EQ(valuesUnder(rows), "ab");
    EXPECT_FALSE(rows.hasRowsUnder(a));
    EXPECT_EQ(rows.levelOf(c), 1u);
}

TEST(ListRows, AreUsableIfAllAboveThemAreEnabled)
{
    guiListRows rows;
    guiRowNumber const a = add(rows, "a");
    guiRowNumber const b = add(rows, "b", a);
    rows.setEnabled(a, false);
    rows.setEnabled(a, false);
    EXPECT_FALSE(rows.isUsable(b));
    EXPECT_TRUE(rows.isEnabled(b));
    rows.setEnabled(a, true);
    EXPECT_TRUE(rows.isUsable(b));
}

TEST(ListRows, AreShownInOrderWithoutThoseUnderCollapsedOnes)
{
    guiListRows rows;
    guiRowNumber const a = add(rows, "a");
    add(rows, "b");
    EXPECT_EQ(shownValues(rows), "ab");
    guiRowNumber const c = add(rows, "c", a);
    add(rows, "d", c);
    add(rows, "e", a);
    EXPECT_EQ(shownValues(rows), "acdeb");
    rows.setExpanded(c, false);
    EXPECT_EQ(shownValues(rows), "aceb");
    rows.setExpanded(a, false);
    EXPECT_EQ(shownValues(rows), "ab");
}

TEST(ListRows, AreSortedUnderEachRowForItself)
{
    guiListRows rows;
    guiRowNumber const c = add(rows, "c");
    add(rows, "a");
    add(rows, "z", c);
    add(rows, "y", c);
    rows.sort([&](guiRowNumber left, guiRowNumber right) { return rows.value(left) < rows.value(right); });
    EXPECT_EQ(shownValues(rows), "acyz");
    EXPECT_EQ(rows.find(u"c"), c);
    add(rows, "b");
    EXPECT_EQ(valuesUnder(rows), "acb");
}

TEST(ListRows, AreCopiedWithEverythingTheyHave)
{
    guiListRows rows;
    guiRowNumber const a = add(rows, "a", kNoRow, kRowCheckBox);
    add(rows, "b", a);
    rows.setChecked(a, true);
    rows.selected.insert(1);
    guiListRows copy(rows);
    rows.clear();
    EXPECT_EQ(rows.size(), 0u);
    EXPECT_EQ(shownValues(copy), "ab");
    EXPECT_TRUE(copy.isChecked(a));
    EXPECT_EQ(copy.indicators(), 1u);
    EXPECT_TRUE(copy.selected.contains(1));
    EXPECT_EQ(copy.find(u"B"), 1u);
    copy.setText(1, 2, "third");
    EXPECT_EQ(copy.textCount(1), 3u);
    EXPECT_EQ(copy.text(1, 0).toString(), "b text");
}

TEST(PackedRows, ComeOutAsTheyWentIn)
{
    guiRowPacker packer(2);
    packer.addState({1, true, true, false, true, false});
    for (QString const& field :
         {QString("v"), QString(), QString("second"), QString("p"), QString("i"), QString("0;red;;")})
        packer.addField(field);
    auto const packed = guiPackedRows::read(packer.packed());
    ASSERT_TRUE(packed);
    EXPECT_EQ(packed->count(), 1u);
    EXPECT_EQ(packed->value(0).toString() + packed->parent(0).toString() + packed->icon(0).toString(), "vpi");
    EXPECT_EQ(packed->look(0).toString(), "0;red;;");
    EXPECT_EQ(packed->text(0, 0).toString() + "/" + packed->text(0, 1).toString(), "/second");
    guiPackedState const state = packed->state(0);
    EXPECT_EQ(state.indicator, 1u);
    EXPECT_TRUE(state.isChecked && state.isSelected && state.isCollapsed && !state.isDisabled);
}

TEST(PackedRows, HaveTextsOfAnyLength)
{
    for (int const length : {0, 65534, 65535, 65536, 200000}) {
        guiRowPacker packer(2, false);
        packer.addState({});
        for (QString const& field : {QString("v"), QString(length, 'x'), QString("behind")})
            packer.addField(field);
        auto const packed = guiPackedRows::read(packer.packed());
        ASSERT_TRUE(packed) << length;
        EXPECT_EQ(packed->text(0, 0).size(), length);
        EXPECT_EQ(packed->text(0, 1).toString(), "behind");
    }
}

TEST(ListLooks, OfCellsLieOverThatOfTheirRow)
{
    QString looks;
    guiAddLook(looks, 0, {"red", "", true});
    guiAddLook(looks, 1, {});
    guiAddLook(looks, 2, {"#00F", "yellow", false});
    auto const row = guiLookIn(looks, 0);
    EXPECT_EQ(row.color + "/" + row.ground, "red/");
    EXPECT_TRUE(row.isBold && *row.isBold);
    EXPECT_EQ(guiLookIn(looks, 1).color, "red");
    auto const cell = guiLookIn(looks, 2);
    EXPECT_EQ(cell.color + "/" + cell.ground, "#00F/yellow");
    EXPECT_TRUE(cell.isBold && !*cell.isBold);
    EXPECT_TRUE(guiLookIn(QStringView(), 1).isUsual());
}

TEST(ListLooks, ThatAreNoneAreAsUsual)
{
    for (char const* text : {";", "0", "0;", "0;red", "|||", "x;;;", "-1;a;b;1", ";;;;;;"})
        EXPECT_TRUE(guiLookIn(QString(text), 3).isUsual()) << text;
}

TEST(PackedRows, ThatDoNotHoldWhatTheySayAreRefused)
{
    QString const packed = packedTree({{"a", ""}, {"b", "a"}});
    ASSERT_TRUE(guiPackedRows::read(packed));
    for (qsizetype length = 0; length < packed.size(); ++length)
        EXPECT_FALSE(guiPackedRows::read(packed.left(length))) << length;
    EXPECT_FALSE(guiPackedRows::read(packed + "x"));
    QString many = packed;
    many[2] = QChar(char16_t{0xFFFF});
    EXPECT_FALSE(guiPackedRows::read(many));
    many[1] = QChar(char16_t{0xFFFF});
    EXPECT_FALSE(guiPackedRows::read(many));
}

TEST(PackedRows, BecomeRowsOfAList)
{
    guiListRows rows;
    add(rows, "old");
    auto const packed =
        guiPackedRows::read(packedTree({{"a", "late"}, {"b", "A"}, {"late", ""}, {"c", "b"}, {"c", "c"}}));
    EXPECT_EQ(rows.assign(packed, kRowPlain, 10), 0);
    EXPECT_EQ(shownValues(rows), "abcclate");
    EXPECT_EQ(rows.find(u"old"), kNoRow);
    EXPECT_EQ(rows.above(4), 3u);
    rows.setText(1, 0, "changed");
    EXPECT_EQ(rows.text(1, 0).toString(), "changed");
    EXPECT_EQ(rows.text(0, 0).toString(), "a text");
    EXPECT_EQ(rows.value(1).toString(), "b");
    EXPECT_EQ(rows.assign(packed, kRowPlain, 2), 1); // c lies too deep
    EXPECT_EQ(shownValues(rows), "abcclate");
    EXPECT_EQ(rows.levelOf(3), 1u);
}

namespace {

/// A source that writes down what it asks for.
struct Asked
{
    std::vector<std::pair<unsigned, unsigned>> requests;
    guiListSource source{1050, [this](unsigned first, unsigned count) { requests.emplace_back(first, count); }};
    void give(unsigned first)
    {
        guiRowPacker packer(1, false);
        for (unsigned row = first; row < first + guiListSource::kPageRows; ++row) {
            packer.addState({});
            packer.addField(QString("v%1").arg(row));
            packer.addField(QString("text %1").arg(row));
        }
        source.give(first, guiPackedRows::read(packer.packed()));
    }
};

} // namespace

TEST(ListSource, AsksOnceForEachPageInView)
{
    Asked asked;
    asked.source.want(190, 210);
    asked.source.want(195, 215);
    asked.source.want(1040, 1060);
    std::vector<std::pair<unsigned, unsigned>> const expected{{0, 200}, {200, 200}, {1000, 50}};
    EXPECT_EQ(asked.requests, expected);
    asked.give(200);
    asked.source.want(200, 220);
    EXPECT_EQ(asked.requests.size(), 3u);
    EXPECT_EQ(asked.source.text(210, 0).toString(), "text 210");
    EXPECT_EQ(asked.source.text(10, 0).toString(), "");
    EXPECT_EQ(asked.source.value(210), "v210");
    EXPECT_EQ(asked.source.value(10), "10");
    EXPECT_EQ(asked.source.find(u"V210"), 210u);
    EXPECT_EQ(asked.source.find(u"v10"), kNoRow);
}

TEST(ListSource, KeepsABoundedNumberOfPages)
{
    unsigned asked = 0;
    guiListSource source(guiListSource::kMaxRows, [&](unsigned, unsigned) { ++asked; });
    for (unsigned first = 0; first < 100 * guiListSource::kPageRows; first += guiListSource::kPageRows) {
        source.want(first, first + 10);
        source.give(first, nullptr);
    }
    EXPECT_EQ(asked, 100u);
    EXPECT_FALSE(source.isKnown(0));
    EXPECT_TRUE(source.isKnown(99 * guiListSource::kPageRows));
    unsigned known = 0;
    for (unsigned page = 0; page < 100; ++page)
        known += source.isKnown(page * guiListSource::kPageRows);
    EXPECT_EQ(known, guiListSource::kMaxPages);
}

TEST(ListSource, GoesOnAskingWhenNobodyAnswers)
{
    unsigned asked = 0;
    guiListSource source(guiListSource::kMaxRows, [&](unsigned, unsigned) { ++asked; });
    for (unsigned first = 0; first < 100 * guiListSource::kPageRows; first += guiListSource::kPageRows)
        source.want(first, first + 1);
    EXPECT_EQ(asked, 100u);
}
