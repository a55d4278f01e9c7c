#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/CpuClock.h"
#include "xlsx/FormulaDependencies_p.h"

#include <map>
#include <random>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// A workbook of formulas on the sheets One, Two and Three.
class Book
{
public:
    Book()
        : m_dependencies({"One", "Two", "Three"})
    {
    }
    Book &Name(const char *name, const char *text, int localSheet = -1)
    {
        m_dependencies.AddName(name, localSheet, text);
        return *this;
    }
    Book &Table(const char *name, const char *range, int sheet = 0)
    {
        m_dependencies.AddTable(name, sheet, *ParseRange(range));
        return *this;
    }
    Book &Formula(const std::string &cells, const std::string &text, int sheet = 0)
    {
        m_dependencies.AddFormula(sheet, *ParseRange(cells), text);
        m_cells.push_back(cells);
        return *this;
    }
    /// The cells of the formulas that may be stale, in their order.
    QByteArray StaleAfter(const std::string &changed, int sheet = 0)
    {
        m_dependencies.AddChange(sheet, *ParseRange(changed));
        QByteArray told;
        const std::vector<bool> stale = m_dependencies.Stale();
        for (std::size_t i = 0; i < stale.size(); ++i) {
            if (stale[i])
                told += (told.isEmpty() ? "" : " ") + QByteArray::fromStdString(m_cells[i]);
        }
        return told;
    }
    FormulaDependencies &Dependencies() { return m_dependencies; }

private:
    FormulaDependencies m_dependencies;
    std::vector<std::string> m_cells;
};

std::string Cell(int column, int row)
{
    return ColumnName(column) + std::to_string(row);
}

} // namespace

class tst_FormulaDependencies : public TestCase
{
    Q_OBJECT

    /// How long it takes to find that all formulas depend on a change in A1.
    void CompareAllStale(Book &book, const char *changed, int count)
    {
        const CpuClock clock;
        book.Dependencies().AddChange(0, *ParseRange(changed));
        const std::vector<bool> stale = book.Dependencies().Stale();
        QCOMPARE(int(std::count(stale.begin(), stale.end(), true)), count);
        QVERIFY2(clock.IsWithin(1000), std::to_string(clock.Milliseconds()).c_str());
    }

private Q_SLOTS:
    void results_depend_on_the_cells_that_formulas_use()
    {
        const auto book = [] {
            return Book()
                .Formula("B1", "A1*2")
                .Formula("B2", "SUM(A1:A9)")
                .Formula("B3", "A2")
                .Formula("B4", "1+1")
                .Formula("B5", "B1+B3")
                .Formula("B6", "\"A1\"")
                .Formula("B7", "SUM(A:A)")
                .Formula("B8", "SUM(12:13)");
        };
        QCOMPARE(book().StaleAfter("A1"), QByteArray("B1 B2 B5 B7"));
        QCOMPARE(book().StaleAfter("A2"), QByteArray("B2 B3 B5 B7"));
        QCOMPARE(book().StaleAfter("A9"), QByteArray("B2 B7"));
        QCOMPARE(book().StaleAfter("A10"), QByteArray("B7"));
        QCOMPARE(book().StaleAfter("C1"), QByteArray());
        QCOMPARE(book().StaleAfter("C12"), QByteArray("B8"));
        QCOMPARE(book().StaleAfter("A2:C12"), QByteArray("B2 B3 B5 B7 B8"));
        QCOMPARE(book().StaleAfter("A1", 1), QByteArray());
    }

    void other_sheets_are_reached()
    {
        const auto book = [] {
            return Book()
                .Formula("B1", "Two!A1")
                .Formula("B2", "one!C1", 1)
                .Formula("B3", "One:Three!D1", 2)
                .Formula("B4", "Three:Two!D1", 2)
                .Formula("B5", "Nowhere!A1")
                .Formula("B6", "[1]Two!A1");
        };
        QCOMPARE(book().StaleAfter("A1", 1), QByteArray("B1"));
        QCOMPARE(book().StaleAfter("C1"), QByteArray("B2"));
        QCOMPARE(book().StaleAfter("D1"), QByteArray("B3"));
        QCOMPARE(book().StaleAfter("D1", 1), QByteArray("B3 B4"));
        QCOMPARE(book().StaleAfter("D1", 2), QByteArray("B3 B4"));
    }

    void names_are_followed()
    {
        const auto book = [] {
            return Book()
                .Name("Price", "One!$A$1")
                .Name("Local", "One!$A$2", 0)
                .Name("Local", "One!$A$3")
                .Name("Double", "Price*2")
                .Name("Loop", "Pool+One!$A$4")
                .Name("Pool", "Loop")
                .Name("Left", "One!A1")
                .Formula("B1", "price")
                .Formula("B2", "Local")
                .Formula("B3", "Local", 1)
                .Formula("B4", "One!Local", 1)
                .Formula("B5", "Double+1")
                .Formula("B6", "Pool")
                .Formula("B7", "Unknown")
                .Formula("B8", "B5");
        };
        QCOMPARE(book().StaleAfter("A1"), QByteArray("B1 B5 B8"));
        QCOMPARE(book().StaleAfter("A2"), QByteArray("B2 B4"));
        QCOMPARE(book().StaleAfter("A3"), QByteArray("B3"));
        QCOMPARE(book().StaleAfter("A4"), QByteArray("B6"));
        QCOMPARE(book().Formula("B9", "Left").StaleAfter("Z99"), QByteArray("B9")); // depends on where it is used
    }

    void tables_are_followed()
    {
        const auto book = [] {
            return Book()
                .Table("Items", "A1:C5", 1)
                .Formula("E1", "SUM(items[Price])")
                .Formula("C2", "[@Price]*2", 1)
                .Formula("E3", "Others[x]")
                .Formula("E4", "ROWS(Items)")
                .Formula("E5", "[@x]");
        };
        QCOMPARE(book().StaleAfter("A3", 1), QByteArray("E1 C2 E4 E5")); // E5 lies in no table
        QCOMPARE(book().StaleAfter("A6", 1), QByteArray("E5"));
    }

    void what_cannot_be_told_is_stale_once_anything_changes()
    {
        const auto book = [] {
            return Book()
                .Formula("B1", "INDIRECT(\"A\"&1)")
                .Formula("B2", "SUM(OFFSET(A1,0,0,5,1))")
                .Formula("B3", "SUM(A1:INDEX(A:A,3))")
                .Formula("B4", "B1")
                .Formula("B5", "A1");
        };
        QCOMPARE(book().StaleAfter("Z1", 2), QByteArray("B1 B2 B3 B4"));
        QVERIFY(book().Dependencies().Stale() == std::vector<bool>(5, false));
    }

    void array_formulas_fill_all_their_cells()
    {
        QCOMPARE(Book().Formula("B1:B9", "A1:A9*2").Formula("C1", "B9").Formula("C2", "B10").StaleAfter("A3"), QByteArray("B1:B9 C1"));
    }

    void circles_end()
    {
        QCOMPARE(Book().Formula("A1", "B1").Formula("B1", "A1").Formula("C1", "C1").StaleAfter("A1"), QByteArray("A1 B1"));
    }

    void chains_of_100000_take_less_than_a_second()
    {
        const int count = 100000;
        Book forward;
        Book backward;
        Book running;
        Book sums;
        for (int i = 1; i <= count; ++i) {
            forward.Formula(Cell(2, i), Cell(i == 1 ? 1 : 2, i == 1 ? 1 : i - 1));
            backward.Formula(Cell(2, count - i + 1), Cell(i == 1 ? 1 : 2, i == 1 ? 1 : count - i + 2));
            running.Formula(Cell(2, i), "SUM(A$1:A" + std::to_string(i) + ")+SUM(B$1:B" + std::to_string(i) + ")");
            sums.Formula(Cell(1 + i % 100, 2 + i / 100), "SUM(" + Cell(1 + i % 100, 1) + ":" + Cell(1 + i % 100, 1 + i / 100) + ")");
        }
        CompareAllStale(forward, "A1", count);
        CompareAllStale(backward, "A1", count);
        CompareAllStale(running, "A1", count);
        CompareAllStale(sums, "A1:CV1", count);
    }

    void hostile_ranges_end_with_everything_stale()
    {
        // Every box around some of the ranges holds every cell.
        Book book;
        for (int i = 1; i <= 100000; ++i)
            book.Formula("XFC" + std::to_string(i), i % 2 ? "A1+XFD1048576" : "A" + std::to_string(i) + "+XFD" + std::to_string(i));
        CompareAllStale(book, "A1", 50000);
    }

    void no_more_and_no_less_is_stale_in_random_workbooks()
    {
        std::mt19937 random(5);
        for (int round = 0; round < 300; ++round) {
            const auto number = [&random](int most) { return 1 + int(random() % unsigned(most)); };
            const auto range = [&number] {
                const int row = number(8);
                const int column = number(8);
                return CellRange{row, row + number(3) - 1, column, column + number(3) - 1};
            };
            FormulaDependencies dependencies({"One"});
            std::vector<std::pair<CellRange, CellRange>> formulas; // cells, and what they use
            for (int i = number(30); i > 0; --i) {
                const CellRange cell{number(8), 0, number(8), 0};
                formulas.push_back({{cell.firstRow, cell.firstRow, cell.firstColumn, cell.firstColumn}, range()});
                dependencies.AddFormula(0, formulas.back().first, "SUM(" + RangeText(formulas.back().second) + ")");
            }
            const CellRange change = range();
            dependencies.AddChange(0, change);
            // Over and over, until nothing more gets stale.
            std::vector<bool> expected(formulas.size());
            for (bool isMore = true; isMore;) {
                isMore = false;
                for (std::size_t i = 0; i < formulas.size(); ++i) {
                    bool uses = formulas[i].second.Intersects(change);
                    for (std::size_t j = 0; j < formulas.size(); ++j)
                        uses = uses || (expected[j] && formulas[i].second.Intersects(formulas[j].first));
                    isMore = isMore || (uses && !expected[i]);
                    expected[i] = expected[i] || uses;
                }
            }
            QVERIFY(dependencies.Stale() == expected);
        }
    }

    void random_ranges_are_all_found()
    {
        std::mt19937 random(3);
        for (int round = 0; round < 200; ++round) {
            const auto number = [&random](int most) { return 1 + int(random() % unsigned(most)); };
            const auto range = [&number] {
                const int row = number(20);
                const int column = number(20);
                return CellRange{row, row + number(6) - 1, column, column + number(6) - 1};
            };
            RangeIndex index;
            std::vector<CellRange> ranges;
            for (int i = number(40); i > 0; --i) {
                ranges.push_back(range());
                index.Add(ranges.back(), int(ranges.size()) - 1);
            }
            index.Build();
            for (int look = 0; look < 20; ++look) {
                const CellRange wanted = range();
                std::vector<int> expected;
                for (std::size_t i = 0; i < ranges.size(); ++i) {
                    if (ranges[i].Intersects(wanted)) {
                        expected.push_back(int(i));
                        ranges[i] = {};
                    }
                }
                QCOMPARE(index.Meets(wanted), !expected.empty());
                std::vector<int> found;
                index.TakeMeeting(wanted, [&found](int owner) { found.push_back(owner); });
                std::sort(found.begin(), found.end());
                QVERIFY(found == expected);
            }
        }
    }
};

VELMORA_BARE_TEST_MAIN(tst_FormulaDependencies)
#include "tst_FormulaDependencies.moc"
