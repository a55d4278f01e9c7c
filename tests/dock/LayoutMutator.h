#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QJsonObject>
#include <QRandomGenerator>

namespace VelmoraTest {

/// Damages layout files as disks, editors and other programs do, the same way for the same seed.
class LayoutMutator
{
public:
    LayoutMutator(quint32 seed, const QByteArrayList &layouts);

    /// One of the layouts, damaged one to three times.
    QByteArray Next();

private:
    int Below(int bound) { return m_random.bounded(qMax(1, bound)); }
    QByteArray Damaged(const QByteArray &text);

    // --- As text ---
    QByteArray Cut(const QByteArray &text);
    QByteArray Splice(QByteArray text);
    QByteArray Byte(QByteArray text);
    QByteArray Number(QByteArray text);
    QByteArray RenamedKey(QByteArray text);
    QByteArray DoubledKey(QByteArray text);

    // --- As a tree ---
    QByteArray MovedSubtree(const QByteArray &text, bool isCopy);
    QByteArray OtherType(const QByteArray &text);
    QByteArray Deeper(const QByteArray &text);

    QRandomGenerator m_random;
    const QByteArrayList m_layouts;
};

} // namespace VelmoraTest
