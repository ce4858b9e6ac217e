#pragma once

#include <QPlainTextEdit>

namespace vistrel
{

/// The edit field inside a text box. Files that are dropped on it, or pasted from a file manager, are
/// reported and change nothing; all other text goes in as usual.
class ListEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ListEdit(QWidget* parent);

Q_SIGNALS:
    /// Full paths, in the order in which they came.
    void filesDropped(const QStringList& paths);

protected:
    void insertFromMimeData(const QMimeData* source) override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
};

} // namespace vistrel
