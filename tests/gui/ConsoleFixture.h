#pragma once

#include "gui/GuiFixture.h"

#include <QToolBar>

namespace gui {

// The console's window, driven as an operator drives it; the test itself is at the far end of the line.
class ConsoleFixture : public GuiFixture
{
protected:
    // Opens the console on an item as the command does, and plays in it until it closes.
    void open(const QString& key, const std::function<void()>& work)
    {
        const int before = played;
        plant().selectItem(key);
        inside("frmReadWrite", [&](QDialog& console) {
            console_ = &console;
            work();
            if (console.isVisible())
                console.close();
            EXPECT_FALSE(console.isVisible()) << "the console would not close";
        });
        program.handlers().run("ReadWrite");
        EXPECT_EQ(played, before + 1);
    }
    template <class Part>
    Part* part(const char* name) const
    {
        return console_->findChild<Part*>(name);
    }
    QAction* toolButton(const char* key) const
    {
        return part<QToolBar>("tlbMain")->findChild<QAction*>(key, Qt::FindDirectChildrenOnly);
    }
    // What was clicked runs when the window has come to rest.
    static void settle()
    {
        for (int turn = 0; turn < 3; ++turn)
            QApplication::processEvents();
    }
    void press(const char* key)
    {
        auto* toolbar = part<QToolBar>("tlbMain");
        QTest::mouseClick(toolbar->widgetForAction(toolButton(key)), Qt::LeftButton);
        settle();
    }
    void arrives(const QByteArray& bytes)
    {
        port.feed(bytes);
        clock.settle();
        settle();
    }
    void connectByCable()
    {
        if (!toolButton("Simulator")->isChecked())
            press("Simulator");
        press("Connect");
        arrives("ATA");
        clock.run(3000);
        ASSERT_EQ(session.COMPort.Status, session::kConnected);
    }
    void hangUp()
    {
        press("Disconnect");
        arrives("\r");
        ASSERT_EQ(session.COMPort.Status, session::kLineIdle);
    }
    // A write of EN MOD that the instrument doesn't take over.
    void writeInVain()
    {
        press("Write");
        clock.run(15000);
        arrives(QByteArray("\x00\x06", 2));
        clock.run(3000);
        settle();
    }
    QTreeView* list() const { return part<QTreeView>("lvwItems"); }
    QStringList lines() const
    {
        QStringList all;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            all << list()->model()->index(row, 1).data().toString();
        return all;
    }
    QString activity() const { return part<QLabel>("lblActivity")->text(); }
    QString panel(const char* key) const { return control<QWidget>(key)->findChild<QLabel*>("text")->text(); }

    QDialog* console_ = nullptr;
};

} // namespace gui
