#include "note.h"
#include "required.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include <cstdio>

namespace {

int failures = 0;

void Check(bool condition, const char *what)
{
    if (condition)
        return;
    ++failures;
    std::fprintf(stderr, "not so: %s\n", what);
}

void CheckRequired()
{
    Velmora::QcLineEditFrame field;
    require(&field);
    Check(field.getWarning(), "an empty field is warned of");
    field.setText(QStringLiteral("text"));
    Check(!field.getWarning(), "a filled one is not");
    field.clear();
    Check(field.getWarning(), "nor forgotten when it is empty again");
}

void CheckNote()
{
    const QString note = QStringLiteral("a & b\n<b>bold</b> &lt;");
    Velmora::QcTextEditFrame field;
    showNote(&field, note);
    Check(field.getText() == note, "a stranger's text shows as it is written");
    field.setMaxLength(12);
    showNote(&field, note);
    Check(field.getText() == note.left(12), "and so does its beginning");
    field.setText(QStringLiteral("<b>bold</b>"));
    Check(field.getText() == QStringLiteral("bold"), "setText() reads HTML");
    field.setText(QStringLiteral("a & b").toHtmlEscaped());
    Check(field.getText() == QStringLiteral("a &amp; b"), "an escaped text without a bracket is not read as HTML");
}

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
    CheckRequired();
    CheckNote();
    return failures;
}
