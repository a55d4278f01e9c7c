#pragma once

#include <Velmora/ImageParams.h>
#include <Velmora/VelmoraExport.h>

#include <QLabel>
#include <QString>

namespace Velmora {

/// A themed label: text as it stands, elided at its right end, or an icon that fills it.
///
/// Word wrap, rich text, indent, margin and frame of QLabel play no part, in what is painted and in the size hints
/// alike: those are of the whole text. A text with line breaks is painted in lines, and elided as if it had none. With both a text and an
/// icon only the text shows; the icon appears when the text goes.
///
/// With a buddy, a letter behind an & takes the keyboard there, as in any QLabel. The & itself is painted all the same, unless
/// keyboard cues are on: see SetKeyboardCuesEnabled(). Then it stays out of sight when the buddy goes, until the next text, as in any
/// QLabel too.
///
/// Give a label that shows an icon a fixed size. The icon is made as large as the label, and the size hints of QLabel ask for
/// room for the picture: in a layout the label never shrinks, and with a margin it grows at each pass.
class VELMORA_EXPORT QcLabel : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText) // through our setText()
    Q_PROPERTY(LabelType type MEMBER m_type WRITE setType)
    Q_PROPERTY(QString iconPath MEMBER m_iconPath WRITE SetIconPath)
    Q_PROPERTY(QString iconColorParams MEMBER m_iconColorParams WRITE SetIconColorParams)

public:
    /// The text styles, by family, pixel size and colour token.
    enum LabelType : int {
        Display = 0,           ///< Roboto Bold 28, text/text_primary
        Headline = 1,          ///< Roboto Bold 20, text/text_primary
        Subtitle = 2,          ///< Open Sans Medium 16, text/text_primary
        SubtitleSecondary = 3, ///< Open Sans Medium 16, text/text_secondary
        Caption = 4,           ///< Roboto Bold 14, text/text_caption
        CaptionSmall = 5,      ///< Roboto Bold 12, text/text_caption
        Body = 6,              ///< Open Sans Medium 12, text/text_primary
        BodySecondary = 7,     ///< Open Sans Medium 12, text/text_secondary
        Hint = 8,              ///< Open Sans Medium 10, text/text_tertairy
    };
    Q_ENUM(LabelType)

    explicit QcLabel(QWidget *parent = nullptr);

    /// Applies a style's font and colour. Until it is called a label has the default font and no colour token. A number
    /// that names none keeps the token and applies the default font.
    void setType(LabelType type);
    /// Sets the text and announces the new size hint. An empty text brings the icon back.
    void setText(const QString &text);
    /// The icon's file; shown at the label's size once both path and colour are set.
    void SetIconPath(const QString &path);
    /// The colour code of the icon.
    void SetIconColorParams(const QString &code);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    ImageParams IconParams() const;
    void UpdateIcon();
    friend class LabelAccessible;
    bool MarksKeys() const;
    QSize TextSize() const;
    bool ShowsIcon() const;
    QRect ContentsPlace() const;
    void PaintIcon();

    LabelType m_type = Caption;
    QString m_textColorParams;
    QString m_iconPath;
    QString m_iconColorParams;
    qint64 m_shownIcon = 0;       // the cache key of the pixmap that UpdateIcon() set last
    mutable QString m_markedText; // the text that was last seen with a buddy
};

} // namespace Velmora
