#include "support/Pixels.h"
#include "support/TestMain.h"

#include "inputs/PlaceholderColor_p.h"
#include "theme/StyleSheetAlone_p.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QTextEdit>
#include <QVBoxLayout>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kToken = QStringLiteral("text/text_tertairy");
const QString kPlaceholder(6, QChar(0x2588)); // full blocks

/// Counts the changes of a palette that end with the token.
class PutBackCounter : public QObject
{
public:
    explicit PutBackCounter(QWidget &edit) { edit.installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const QPalette palette = static_cast<QWidget *>(watched)->palette();
        if (event->type() == QEvent::PaletteChange && palette.color(QPalette::Text) == QColor(Qt::green)
            && palette.color(QPalette::PlaceholderText) == TokenOf(Table::Light, kToken))
            ++count;
        return false;
    }
};

} // namespace

/// Each function runs for both kinds of edits that have a placeholder.
class TestPlaceholderColor : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_is_that_of_its_token_from_the_first_show_on_data() { AddKinds(); }
    void it_is_that_of_its_token_from_the_first_show_on()
    {
        QWidget *edit = MakeEdit();
        DrainEvents(); // the tasks of the registration are over before the show
        m_window->show();
        COMPARE_COLOR(Ink(*edit), Over(TokenOf(Table::Light, kToken)));
        DrainEvents();
        COMPARE_COLOR(Ink(*edit), Over(TokenOf(Table::Light, kToken)));
    }

    void it_follows_the_colour_table_data() { AddKinds(); }
    void it_follows_the_colour_table()
    {
        QWidget *edit = MakeEdit();
        m_window->show();
        DrainEvents();
        for (const Table table : {Table::Dark, Table::Light, Table::Dark}) {
            UseTable(table);
            COMPARE_COLOR(Ink(*edit, Qt::red), Over(TokenOf(table, kToken), Qt::red));
        }
        m_window->hide();
        UseTable(Table::Light);
        m_window->show();
        DrainEvents();
        COMPARE_COLOR(Ink(*edit), Over(TokenOf(Table::Light, kToken)));
    }

    void it_stays_when_something_else_polishes_the_edit_data() { AddKinds(); }
    void it_stays_when_something_else_polishes_the_edit()
    {
        QWidget *edit = MakeEdit();
        m_window->show();
        DrainEvents();
        const QColor expected = Over(TokenOf(Table::Light, kToken));
        edit->setStyleSheet(QStringLiteral("color: red; background: white; border: none"));
        COMPARE_COLOR(Ink(*edit), expected);
        m_window->setStyleSheet(QStringLiteral("* { color: lime; background: white }"));
        COMPARE_COLOR(Ink(*edit), expected);
        const QString global = qApp->styleSheet();
        qApp->setStyleSheet(global + QStringLiteral("* { color: lime }"));
        COMPARE_COLOR(Ink(*edit), expected);
        qApp->setStyleSheet(global);
        QPalette palette;
        palette.setColor(QPalette::PlaceholderText, Qt::green);
        edit->setPalette(palette);
        COMPARE_COLOR(Ink(*edit), expected);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QPalette ofOneGroup = edit->palette();
            ofOneGroup.setColor(group, QPalette::PlaceholderText, Qt::green);
            edit->setPalette(ofOneGroup);
            COMPARE_COLOR(edit->palette().color(group, QPalette::PlaceholderText), TokenOf(Table::Light, kToken));
        }
        QWidget other;
        other.setStyleSheet(QStringLiteral("* { color: yellow; background: white }"));
        edit->setParent(&other);
        other.resize(200, 60);
        other.show();
        COMPARE_COLOR(Ink(*edit), expected);
        edit->setEnabled(false);
        COMPARE_COLOR(Ink(*edit), expected);
    }

    void a_sheet_of_the_kit_has_it_put_back_once_data() { AddKinds(); }
    void a_sheet_of_the_kit_has_it_put_back_once()
    {
        QWidget *edit = MakeEdit();
        m_window->show();
        DrainEvents();
        PutBackCounter counter(*edit);
        SetStyleSheetAlone(m_window.get(), QStringLiteral("QLineEdit, QTextEdit { color: lime; border: none; background: transparent }"));
        QCOMPARE(edit->palette().color(QPalette::PlaceholderText), TokenOf(Table::Light, kToken));
        QCOMPARE(counter.count, 1); // Qt styled the edit twice
    }

    void the_text_keeps_the_stylesheets_colour_data() { AddKinds(); }
    void the_text_keeps_the_stylesheets_colour()
    {
        QWidget *edit = MakeEdit();
        edit->setProperty("text", kPlaceholder);
        edit->setProperty("plainText", kPlaceholder);
        m_window->show();
        DrainEvents();
        COMPARE_COLOR(Ink(*edit), QColor(Qt::blue));
    }

protected:
    void SetUp() override
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(200, 60);
        m_window->setStyleSheet(QStringLiteral("QLineEdit, QTextEdit { color: blue; border: none; background: transparent }"));
    }

    void TearDown() override
    {
        m_window.reset();
        UseTable(Table::Light);
    }

private:
    static void AddKinds()
    {
        QTest::addColumn<bool>("isLine");
        QTest::newRow("line") << true;
        QTest::newRow("text") << false;
    }

    QWidget *MakeEdit()
    {
        const bool isLine = *static_cast<bool *>(QTest::qData("isLine", qMetaTypeId<bool>()));
        QWidget *edit = nullptr;
        if (isLine)
            edit = new QLineEdit(m_window.get());
        else
            edit = new QTextEdit(m_window.get());
        edit->setProperty("placeholderText", kPlaceholder);
        edit->setGeometry(0, 0, 200, 60);
        QFont font;
        font.setPixelSize(30);
        edit->setFont(font);
        FollowPlaceholderToken(edit);
        return edit;
    }

    static QColor Ink(QWidget &edit, const QColor &background = Qt::white) { return MainInk(Render(edit, background), background); }

    std::unique_ptr<QWidget> m_window;
};

VELMORA_TEST_MAIN(TestPlaceholderColor)

#include "tst_PlaceholderColor.moc"
