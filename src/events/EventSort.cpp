#include "events/EventSort.h"

#include "events/CaseFold.h"
#include "events/EventStore.h"

#include <algorithm>

namespace events {

namespace {

struct Item
{
    quint64 key; // of the eight bytes that are looked at
    quint32 place;
    quint32 row;
};
using Items = std::vector<Item>::iterator;

// Sorts by eight bytes at a time: first all rows by the start of their texts, then each run of equal ones by
// what follows. Few rows need more than the first or second look into their texts, which lie far apart in
// memory.
template <class Key>
class Sorter
{
public:
    Sorter(Key key, bool ascending) : key_(std::move(key)), flip_(ascending ? 0 : ~quint64(0)) {}

    void sort(std::vector<quint32>& rows) const
    {
        std::vector<Item> items(rows.size());
        for (quint32 place = 0; place < rows.size(); ++place)
            items[place] = {0, place, rows[place]};
        sort(items.begin(), items.end(), 0);
        std::transform(items.begin(), items.end(), rows.begin(), [](const Item& item) { return item.row; });
    }

private:
    void sort(Items begin, Items end, int depth) const
    {
        for (Items item = begin; item != end; ++item)
            item->key = key_(item->row, depth) ^ flip_;
        std::sort(begin, end, [](const Item& a, const Item& b) {
            return a.key != b.key ? a.key < b.key : a.place < b.place;
        });
        while (begin != end) {
            const quint64 key = begin->key;
            const Items next = std::find_if(begin, end, [key](const Item& item) { return item.key != key; });
            const bool textGoesOn = ((key ^ flip_) & 0xFF) != 0;
            if (textGoesOn && next - begin > 1)
                sort(begin, next, depth + 1);
            begin = next;
        }
    }

    Key key_;
    quint64 flip_;
};

// Keys of texts go on eight bytes deeper each time.
template <class TextOf>
void sortByText(std::vector<quint32>& rows, const CaseFold& fold, bool ascending, TextOf textOf)
{
    const auto key = [&](quint32 row, int depth) { return fold.key(textOf(row), depth * 8); };
    Sorter(key, ascending).sort(rows);
}

// Keys that tell all at the first look: their last byte is kept free.
template <class NumberOf>
void sortByNumber(std::vector<quint32>& rows, bool ascending, NumberOf numberOf)
{
    const auto key = [&](quint32 row, int) { return quint64(numberOf(row)) << 8; };
    Sorter(key, ascending).sort(rows);
}

// The rank of each word among them all.
template <std::size_t count>
std::array<int, count> ranksOf(const std::array<QString, count>& words)
{
    std::array<int, count> ranks{};
    for (std::size_t i = 0; i < count; ++i)
        ranks[i] = int(std::count_if(words.begin(), words.end(), [&](const QString& word) {
            return QString::compare(word, words[i], Qt::CaseInsensitive) < 0;
        }));
    return ranks;
}

void sortByDate(std::vector<quint32>& rows, const EventStore& store, const CaseFold& fold, bool ascending)
{
    if (store.allDated()) {
        sortByNumber(rows, ascending, [&](quint32 row) { return store.when(row); });
        return;
    }
    QByteArray text;
    sortByText(rows, fold, ascending, [&](quint32 row) -> QByteArrayView {
        const StoredEvent event = store.at(row);
        if (event.when == kNoStamp)
            return event.dateText;
        text = sortableText(event.when);
        return text;
    });
}

} // namespace

void sortEvents(std::vector<quint32>& rows, const EventStore& store, const EventWords& words,
                const CaseFold& fold, EventColumn column, bool ascending)
{
    switch (column) {
    case EventColumn::Type:
        return sortByNumber(rows, ascending, [&, ranks = ranksOf(words.types)](quint32 row) {
            return ranks[store.type(row)];
        });
    case EventColumn::Date:
        return sortByDate(rows, store, fold, ascending);
    case EventColumn::Source:
        return sortByNumber(rows, ascending, [&, ranks = ranksOf(words.sources)](quint32 row) {
            return ranks[store.source(row)];
        });
    case EventColumn::Equipment:
        return sortByText(rows, fold, ascending, [&](quint32 row) { return store.at(row).equipment; });
    case EventColumn::Instrument:
        return sortByText(rows, fold, ascending, [&](quint32 row) { return store.at(row).instrument; });
    case EventColumn::Description:
        return sortByText(rows, fold, ascending, [&](quint32 row) { return store.at(row).description; });
    }
}

} // namespace events
