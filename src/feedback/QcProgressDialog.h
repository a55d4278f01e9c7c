#pragma once

#include <Velmora/VelmoraExport.h>

#include <QDialog>
#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QLabel;
class QProgressBar;
QT_END_NAMESPACE

namespace Velmora {

struct ProgressTexts;

/// A bar with its percentage and a tip under it, 357 by 87 pixels: how far long work has come.
///
/// There is one, which the host shows and hides. Escape hides it and emits rejected(), which is the host's sign to cancel the work;
/// nothing else hides it. It does not keep the program running, and lives to the end of it: do not delete it. Main thread only:
/// a worker hands each value over with QcApplication::PostTaskToMainThread(), of which the last posted is the last shown.
class VELMORA_EXPORT QcProgressDialog : public QDialog
{
    Q_OBJECT

public:
    ~QcProgressDialog() override;

    /// The one instance, made at its first use.
    static QcProgressDialog *getInstance();

    /// The tip under the bar, tr("LoadingMsg") at first; read as HTML if it looks like it, as by any QLabel. Assistive technology reads
    /// it as the name of bar and dialog, unless the host gave them one.
    void setText(const QString &text);
    /// The least and the greatest value, 0 and 100 at first. A maximum below the minimum counts as the minimum; 0 and 0 make a bar
    /// that is busy without end. A value left outside becomes one below the minimum: -1 of 4 shows "-25%".
    void setRange(int minimum, int maximum);
    /// How far the work is. A value outside of the range is ignored. The percentage is that of the maximum, whatever the minimum,
    /// cut to whole percents and computed with 32-bit floats: 53 and 59 of 100 show "52%" and "58%". Of a maximum of 0 it is "0%".
    void setValue(int value);
    int value() const;
    /// The greatest value of the range.
    int totalProgressCount() const;
    /// Sets the value to 0, if the range holds it, and the tip to nothing. The range stays.
    void clear();
    /// As QWidget's, but the dialog stays the window that it is, in front of \a parent's. It is hidden until the host shows it.
    /// When its parent dies it is hidden and has none; what it shows stays. The dialog itself and what lies in it are refused.
    void setParent(QWidget *parent);

protected:
    void changeEvent(QEvent *event) override;

private:
    explicit QcProgressDialog(QWidget *parent);
    void updateProgressText();
    void PutTipIn();
    void NameByTip();

    QProgressBar *m_progressBar;
    QLabel *m_progressLabel;
    QLabel *m_tipLabel;
    const std::unique_ptr<ProgressTexts> m_texts;
};

} // namespace Velmora
