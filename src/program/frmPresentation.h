#pragma once

#include <QPixmap>
#include <QWidget>

namespace program {

// The splash: one image, as sharp as the screen it stands on.
class frmPresentation : public QWidget
{
    Q_OBJECT

public:
    frmPresentation();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap picture_;
};

} // namespace program
