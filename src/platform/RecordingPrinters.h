#pragma once

#include "platform/Printer.h"

#include <QStringList>

namespace platform {

// Paper that keeps its pages as lines.
class RecordingPrinter : public Printer
{
public:
    // A portrait sheet of A4 with the usual margins holds 85 columns and 69 lines of size 10.
    explicit RecordingPrinter(double width = 510, double height = 785) : width_(width), height_(height) {}

    void setFont(const QString& family) override { font = family; }
    void setFontSize(int points) override { size_ = points; }
    int columns() const override { return int(width_ / (kPitch * size_)); }
    double lineHeight(int points) const override { return kLineHeight * points; }
    double heightLeft() const override { return height_ - used_; }
    void printLine(const QString& line) override;
    void newPage() override;

    QString font;
    std::vector<QStringList> pages{{}};
    std::vector<std::vector<int>> sizes{{}}; // of the lines of each page

private:
    static constexpr double kPitch = 0.6;
    static constexpr double kLineHeight = 1.13;

    double width_, height_;
    double used_ = 0;
    int size_ = 10;
};

// Printers that keep what they print. Whoever plays the machine changes the list while a job waits.
class RecordingPrinters : public Printers
{
public:
    struct Job
    {
        QString title;
        Orientation orientation;
        PrintOrder order;
        QString font;
        std::vector<QStringList> pages;
        std::vector<std::vector<int>> sizes;
    };

    std::vector<PrinterInfo> installed() override { return printers; }
    QString defaultPrinter() override { return standard; }
    void print(const PrintReport& report, const PrintOrder& order) override;
    void preview(const PrintReport& report, const PrintOrder& order) override;

    std::vector<PrinterInfo> printers{{"Office", "ipp://office", "LaserMark 20"}};
    QString standard = "Office";
    std::vector<Job> jobs;
    std::vector<Job> previews;

private:
    static Job write(const PrintReport& report, const PrintOrder& order);
};

} // namespace platform
