#pragma once

#include "session/Forward.h"

#include <QWidget>

namespace structure {

class NodeView;
class Structure;

// The plant as a tree: tvwBus over the structure's own model.
class frmTreeBus : public QWidget
{
    Q_OBJECT

public:
    frmTreeBus(Structure& structure, session::Session& session, QWidget* parent = nullptr);

    NodeView& view() const { return *tvwBus_; }

signals:
    void menuWanted(const QPoint& globalPosition); // the popup mnuBus
    void commandWanted(const QString& command);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void follow(const QString& key);
    void expandOrCollapse(bool expand);

    Structure& structure_;
    session::Session& session_;
    NodeView* tvwBus_;
};

} // namespace structure
