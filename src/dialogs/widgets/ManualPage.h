#pragma once

#include <QTextBrowser>
#include <QTimer>

namespace dialogs {

// A page of the manual: its pictures are as wide as the page at most, and sharp.
class ManualPage : public QTextBrowser
{
    Q_OBJECT

public:
    explicit ManualPage(QWidget* parent = nullptr);

    // Brings a heading to the top, and selects the first of the words behind it. Without a heading the page
    // begins at its top.
    void goTo(const QString& heading, const QString& words);

    QVariant loadResource(int type, const QUrl& name) override;

signals:
    // A page is shown, whatever led to it.
    void turned();

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void drawTables();
    void fitPictures();
    int room() const;

    QTimer fitting_;
    int laidOutFor_ = 0;
};

} // namespace dialogs
