// Prints, as a table in Markdown, the least contrast that each control has in each built-in colour table.

#include "contrast/Measures.h"

#include <Velmora/QcApplication.h>

#include <QTextStream>

int main(int argc, char **argv)
{
    const Velmora::QcApplication application(argc, argv);
    QTextStream(stdout) << VelmoraTest::ContrastPage(VelmoraTest::AllLooks(QStringLiteral(VELMORA_SOURCES)));
    return 0;
}
