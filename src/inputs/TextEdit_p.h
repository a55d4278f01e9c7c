#pragma once

#include <QPointer>
#include <QTextEdit>

namespace Velmora {

/// The edit inside a framed text edit.
class TextEdit : public QTextEdit
{
    Q_OBJECT

public:
    /// An edit inside \a frame, whose child it is.
    explicit TextEdit(QWidget *frame);

    /// The frame that it was made for, null once that has died.
    QWidget *Frame() const { return m_frame; }

    /// How many UTF-16 units the frame will leave of a text, -1 for all. The edit itself cuts nothing to it.
    void SetLimit(int limit);
    /// Does as setText(), which reads what looks like HTML, but for HTML that would keep Qt busy for hours.
    void SetTextOrHtml(const QString &text);

protected:
    void insertFromMimeData(const QMimeData *source) override;

private:
    QString WhatCounts(const QString &text) const;

    QPointer<QWidget> m_frame;
    int m_limit = -1;
};

/// Whether \a watched is \a edit, and still whole: one that dies sends its last events when it is a bare widget already.
inline bool IsWhole(QObject *watched, const QPointer<TextEdit> &edit)
{
    const auto *whole = qobject_cast<TextEdit *>(watched);
    return whole && whole == edit;
}

/// The length of the text of \a edit in UTF-16 units, without taking it; 0 if there is no edit.
int TextLength(const QTextEdit *edit);

/// The first \a count UTF-16 units of \a text, less one that would be half a character.
QString FirstUnits(const QString &text, int count);

} // namespace Velmora
