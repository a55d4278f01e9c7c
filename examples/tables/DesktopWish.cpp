#include "DesktopWish.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEventLoop>
#include <QTimer>

namespace Examples {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kSpace = QStringLiteral("org.freedesktop.appearance");
const QString kDark = QStringLiteral("color-scheme"); // 1 dark, 2 light, anything else no preference
const QString kContrast = QStringLiteral("contrast"); // 1 more of it, anything else no preference
const QString kReadOne = QStringLiteral("ReadOne");
const QString kRead = QStringLiteral("Read"); // of older portals, which put a variant into the variant

QVariant Unwrapped(QVariant value)
{
    while (value.userType() == qMetaTypeId<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

DesktopWish::DesktopWish(QObject *parent)
    : QObject(parent)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    qRegisterMetaType<QDBusVariant>(); // by whose name Qt 6 looks for the slot's argument
    bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                SLOT(OnSettingChanged(QString, QString, QDBusVariant)));
    Ask(kDark, kReadOne);
    Ask(kContrast, kReadOne);
}

std::optional<Table> DesktopWish::WishedTable() const
{
    if (!m_isDark && !m_hasContrast)
        return std::nullopt;
    const bool isDark = m_isDark.value_or(false);
    if (m_hasContrast.value_or(false))
        return isDark ? Table::ContrastDark : Table::ContrastLight;
    return isDark ? Table::Dark : Table::Light;
}

void DesktopWish::AwaitAnswers(std::chrono::milliseconds moment)
{
    if (m_openQuestions == 0)
        return;
    QEventLoop loop;
    connect(this, &DesktopWish::SignalAnswered, &loop, &QEventLoop::quit);
    QTimer::singleShot(moment, &loop, &QEventLoop::quit);
    loop.exec();
}

void DesktopWish::Ask(const QString &key, const QString &method)
{
    ++m_openQuestions;
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kInterface, method);
    call << kSpace << key;
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [=] { TakeAnswer(*watcher, key, method); });
}

void DesktopWish::TakeAnswer(QDBusPendingCallWatcher &watcher, const QString &key, const QString &method)
{
    const QDBusMessage answer = QDBusPendingReply<>(watcher).reply();
    watcher.deleteLater();
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
        Take(key, Unwrapped(answer.arguments().constFirst()));
    else if (method == kReadOne && answer.errorName() == QLatin1String("org.freedesktop.DBus.Error.UnknownMethod"))
        Ask(key, kRead);
    EndQuestion();
}

void DesktopWish::EndQuestion()
{
    if (--m_openQuestions == 0)
        Q_EMIT SignalAnswered();
}

void DesktopWish::OnSettingChanged(const QString &space, const QString &key, const QDBusVariant &value)
{
    if (space == kSpace)
        Take(key, Unwrapped(value.variant()));
}

void DesktopWish::Take(const QString &key, const QVariant &value)
{
    std::optional<bool> *wish = key == kDark ? &m_isDark : key == kContrast ? &m_hasContrast : nullptr;
    if (!wish || value.userType() != QMetaType::UInt)
        return;
    const bool isWanted = value.toUInt() == 1;
    if (*wish == isWanted)
        return;
    *wish = isWanted;
    Q_EMIT SignalWishChanged();
}

Table ApplyWishedTable(DesktopWish &wish, Table table)
{
    wish.AwaitAnswers();
    const Table wished = wish.WishedTable().value_or(table);
    if (wished != table)
        ApplyTable(wished);
    return wished;
}

} // namespace Examples
