#pragma once

#include <Velmora/XlsxOperator.h>

#include <QHash>
#include <QTemporaryDir>
#include <QVariant>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QTableWidget;
QT_END_NAMESPACE

namespace Velmora {
class QcLabel;
}

namespace Gallery {

/// A template as XlsxOperator sees it: its elements in a table in which they are changed, and saved.
class OperatorElements : public QWidget
{
    Q_OBJECT

public:
    explicit OperatorElements(QWidget *parent = nullptr);

    void Show(const QString &path);

private:
    bool Load(Velmora::XlsxOperator &op, const QString &path, const QString &filter);
    void AddElement(const QString &name, const QVariant &value);
    bool IsChanged(int row, int column) const;
    bool IsPicture(int row) const;
    QString EffectOf(int row) const;
    void ShowEffect(int row);
    void Set(Velmora::XlsxOperator &op, int row);
    bool SaveAs(const QString &path);

    QTemporaryDir m_dir;
    QString m_path;
    QHash<QString, QVariant> m_elements;
    QTableWidget *m_table = nullptr;
    Velmora::QcLabel *m_result = nullptr;
};

} // namespace Gallery
