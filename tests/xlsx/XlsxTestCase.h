#pragma once

#include <Velmora/XlsxOperator.h>

#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/Archive.h"
#include "xlsx/Template.h"
#include "xlsx/XlsxFiles.h"

#include <QTemporaryDir>

#include <functional>

#include <sys/resource.h>

namespace VelmoraTest {

/// Tests in a temporary folder, which holds the template, the working directory and the output.
class XlsxTestCase : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override { m_dir = std::make_unique<QTemporaryDir>(); }
    void TearDown() override { m_dir.reset(); }

    QString Path(const QString &name) const { return m_dir->filePath(name); }
    QString TemplatePath() const { return Path(QStringLiteral("template.xlsx")); }
    QString WorkPath() const { return Path(QStringLiteral("work")); }
    QString OutputPath() const { return Path(QStringLiteral("output.xlsx")); }

    /// Sets the three paths.
    void Prepare(Velmora::XlsxOperator &op) const;
    /// Writes the template, sets the paths and loads.
    bool Load(Velmora::XlsxOperator &op, const Template &source);
    bool Load(Velmora::XlsxOperator &op, const QByteArray &archive);
    /// Runs \a body in a child process, which is not root and must not write files of more than \a fileBytes, and gives its answer.
    static int InChild(rlim_t fileBytes, const std::function<bool()> &body);
    /// What \a work takes of processor time.
    static double CpuSeconds(const std::function<void()> &work);
    /// Loads, edits and saves; then the text of the first sheet as OutputBetween() gives it, or what failed.
    QByteArray Saved(const Template &source, const std::function<void(Velmora::XlsxOperator &)> &edit, const QByteArray &begin,
                     const QByteArray &end);
    /// The parts of the output.
    QMap<QByteArray, QByteArray> Output() const { return ReadArchive(FileContent(OutputPath())); }
    /// The text between the first \a begin and the next \a end of the part \a name of the output, both left out.
    QByteArray OutputBetween(const QByteArray &name, const QByteArray &begin, const QByteArray &end) const;

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};

/// Compares the seconds of an odd work with those of a plain one. Far apart, because machines are busy: what is guarded against takes
/// a hundred times as long and more.
#define COMPARE_COST(odd, plain) QVERIFY2((odd) < 5 * (plain) + 0.1, qPrintable(QStringLiteral("%1 s beside %2 s").arg(odd).arg(plain)))

const QByteArray kSheet1 = QByteArrayLiteral("xl/worksheets/sheet1.xml");
const QByteArray kSharedStrings = QByteArrayLiteral("xl/sharedStrings.xml");
const QByteArray kWorkbook = QByteArrayLiteral("xl/workbook.xml");

} // namespace VelmoraTest
