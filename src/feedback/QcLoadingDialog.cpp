#include <Velmora/QcLoadingDialog.h>
#include <Velmora/QcStyleManager.h>

#include "core/OwnText_p.h"
#include "feedback/ParentWatch_p.h"
#include "feedback/RenderOnlySvgWidget_p.h"

#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace Velmora {

namespace {

constexpr int kImageSize = 48;
constexpr int kImageSpacing = 7;
constexpr int kCaptionSpacing = 17;

} // namespace

struct LoadingTexts
{
    OwnText loading;
    OwnText name;
    ParentWatch parent;
};

QcLoadingDialog *QcLoadingDialog::getInstance()
{
    static QcLoadingDialog *const instance = new QcLoadingDialog(nullptr); // never deleted: widgets cannot outlive the application
    return instance;
}

QcLoadingDialog::QcLoadingDialog(QWidget *parent)
    : QDialog(parent)
    , m_texts(std::make_unique<LoadingTexts>())
{
    setWindowFlag(Qt::FramelessWindowHint, true);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(kCaptionSpacing);

    auto *frame = new QFrame(this);
    auto *inner = new QVBoxLayout(frame);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->setSpacing(kImageSpacing);
    m_image = new RenderOnlySvgWidget(this);
    m_image->load(QStringLiteral(":/images/loading.svg"));
    m_image->setFixedSize(kImageSize, kImageSize);
    inner->addWidget(m_image, 0, Qt::AlignCenter);
    m_loadingLabel = new QLabel(frame);
    m_loadingLabel->setObjectName(QStringLiteral("m_loadingLabel"));
    m_loadingLabel->setAlignment(Qt::AlignCenter);
    inner->addWidget(m_loadingLabel, 0, Qt::AlignCenter);

    m_textLabel = new QLabel(this);
    m_textLabel->setObjectName(QStringLiteral("m_textLabel"));
    m_textLabel->setAlignment(Qt::AlignCenter);
    outer->addStretch();
    outer->addWidget(frame);
    outer->addWidget(m_textLabel);
    outer->addStretch();

    PutTextsIn();
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/LoadingDialog.qss"));
}

QcLoadingDialog::~QcLoadingDialog() = default;

void QcLoadingDialog::setText(const QString &text)
{
    m_textLabel->setText(text);
    PutTextsIn();
}

void QcLoadingDialog::PutTextsIn()
{
    m_texts->loading.PutInto<QLabel>(*m_loadingLabel, &QLabel::text, &QLabel::setText, tr("Loading..."));
    const QString name = QStringLiteral("%1 %2").arg(m_loadingLabel->text(), m_textLabel->text()).trimmed();
    m_texts->name.PutInto<QWidget>(*this, &QWidget::accessibleName, &QWidget::setAccessibleName, name);
}

void QcLoadingDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        PutTextsIn();
    else if (event->type() == QEvent::ParentChange)
        m_texts->parent.Follow(*this, [this] { LeaveDyingParent(); });
}

void QcLoadingDialog::LeaveDyingParent()
{
    setParent(nullptr, Qt::Dialog | Qt::FramelessWindowHint); // as it was made: in its parent it was no window
}

} // namespace Velmora
