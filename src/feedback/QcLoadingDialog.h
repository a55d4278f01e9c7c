#pragma once

#include <Velmora/VelmoraExport.h>

#include <QDialog>
#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QLabel;
class QSvgWidget;
QT_END_NAMESPACE

namespace Velmora {

struct LoadingTexts;

/// A spinner with "Loading..." and a caption under it, without any ground: the whole program's sign that it is at work.
///
/// There is one, which the host shows and hides. The spinner stands still: the dialog has no timer. "Loading..." is white in both
/// tables and the caption has the colour of secondary text, so show the dialog over a veil, such as a QcMaskFrame.
/// After setParent() it lies in its new parent as any child does, hidden until it is shown. When that parent dies it comes back as a
/// hidden window without a parent. Escape hides it and emits rejected(), as of any dialog. It does not keep the program running, and
/// lives to the end of it: do not delete it. Main thread only.
class VELMORA_EXPORT QcLoadingDialog : public QDialog
{
    Q_OBJECT

public:
    ~QcLoadingDialog() override;

    /// The one instance, made at its first use.
    static QcLoadingDialog *getInstance();

    /// The caption, empty at first; read as HTML if it looks like it, as by any QLabel. Assistive technology reads both texts as the
    /// dialog's name, unless the host gave it one.
    void setText(const QString &text);

protected:
    void changeEvent(QEvent *event) override;

private:
    explicit QcLoadingDialog(QWidget *parent);
    void PutTextsIn();
    void LeaveDyingParent();

    QSvgWidget *m_image;
    QLabel *m_loadingLabel;
    QLabel *m_textLabel;
    const std::unique_ptr<LoadingTexts> m_texts;
};

} // namespace Velmora
