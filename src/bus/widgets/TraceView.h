#pragma once

#include <QTreeView>
#include <functional>

namespace bus {

class TraceModel;

// The events of the line, coloured by what they are.
class TraceView : public QTreeView
{
    Q_OBJECT

public:
    explicit TraceView(TraceModel& model, QWidget* parent = nullptr);

    // Runs what changes the list. Who looked at its end looks at the new end.
    void keepingTheEnd(const std::function<void()>& change);
};

} // namespace bus
