#pragma once

#include <QHeaderView>

namespace widgets {

// A header whose sort column carries the program's own arrow; no other column carries one.
class SortHeader : public QHeaderView
{
    Q_OBJECT

public:
    explicit SortHeader(QWidget* parent = nullptr);

    // -1 is no column.
    void setArrow(int column, bool ascending);
    int arrowColumn() const { return column_; }
    bool arrowAscending() const { return ascending_; }

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;

private:
    int column_ = -1;
    bool ascending_ = true;
};

} // namespace widgets
