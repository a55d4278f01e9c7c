#pragma once

#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QDBusConnection;
QT_END_NAMESPACE

namespace VelmoraTest {

/// A file manager service that shows nothing and remembers what it was asked.
class FakeFileManager : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    enum class Answer {
        Done,
        Error,
        Held, ///< none until AnswerHeldCalls()
    };

    bool Start(QDBusConnection bus);
    void Stop(QDBusConnection bus);

    void SetAnswer(Answer answer) { m_answer = answer; }
    void AnswerHeldCalls(QDBusConnection bus);
    void FailHeldCalls(QDBusConnection bus);

    /// The method and its arguments, a blank between them; a startup id in brackets.
    QStringList Calls() const { return m_calls; }

public Q_SLOTS:
    void ShowFolders(const QStringList &uris, const QString &startupId) { Take(QStringLiteral("ShowFolders"), uris, startupId); }
    void ShowItems(const QStringList &uris, const QString &startupId) { Take(QStringLiteral("ShowItems"), uris, startupId); }

Q_SIGNALS:
    void Called(const QString &caller);

private:
    void Take(const QString &method, const QStringList &uris, const QString &startupId);

    Answer m_answer = Answer::Done;
    QStringList m_calls;
    QList<QDBusMessage> m_held;
};

} // namespace VelmoraTest
