#pragma once

#include <QLabel>

namespace widgets {

// A line of which the end matters most: what has no room at its beginning gives way to an ellipsis.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    // The text as it is shown now.
    QString shownText() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace widgets
