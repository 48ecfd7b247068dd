#include "events/EventSort.h"

#include "events/CaseFold.h"
#include "events/EventStore.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace events {

namespace {

struct Item
{
    quint64 key; // of the eight bytes that are looked at
    quint32 row;
};
using Items = std::vector<Item>::iterator;

// Fewer are sorted faster by comparing.
constexpr qsizetype kFew = 512;
constexpr int kKeyBytes = 8;

// Sorts by the keys, byte by byte from the last one; equal keys keep their order. Bytes that are the same in
// all keys, as most are in texts of one form, cost one look.
class KeySorter
{
public:
    explicit KeySorter(std::size_t most) : spare_(most) {}

    void sort(Items begin, Items end)
    {
        const auto less = [](const Item& a, const Item& b) { return a.key < b.key; };
        if (std::is_sorted(begin, end, less))
            return;
        if (end - begin < kFew) {
            std::stable_sort(begin, end, less);
            return;
        }
        std::array<std::array<quint32, 256>, kKeyBytes> counts{};
        for (Items item = begin; item != end; ++item) {
            for (int byte = 0; byte < kKeyBytes; ++byte)
                ++counts[std::size_t(byte)][digit(item->key, byte)];
        }
        for (int byte = 0; byte < kKeyBytes; ++byte) {
            auto& count = counts[std::size_t(byte)];
            if (count[digit(begin->key, byte)] != quint32(end - begin))
                scatter(begin, end, byte, count);
        }
    }

private:
    static std::size_t digit(quint64 key, int byte) { return key >> 8 * byte & 0xFF; }

    void scatter(Items begin, Items end, int byte, std::array<quint32, 256>& places)
    {
        std::exclusive_scan(places.begin(), places.end(), places.begin(), quint32(0));
        for (Items item = begin; item != end; ++item)
            spare_[places[digit(item->key, byte)]++] = *item;
        std::copy(spare_.begin(), spare_.begin() + (end - begin), begin);
    }

    std::vector<Item> spare_;
};

// Sorts by eight bytes at a time: first all rows by the start of their texts, then each run of equal ones by
// what follows. Few rows need more than the first or second look into their texts, which lie far apart in
// memory.
template <class Key>
class Sorter
{
public:
    Sorter(Key key, bool ascending, std::size_t count)
        : key_(std::move(key)), flip_(ascending ? 0 : ~quint64(0)), keys_(count)
    {
    }

    void sort(std::vector<quint32>& rows)
    {
        std::vector<Item> items(rows.size());
        std::transform(rows.begin(), rows.end(), items.begin(), [](quint32 row) { return Item{0, row}; });
        sort(items.begin(), items.end(), 0);
        std::transform(items.begin(), items.end(), rows.begin(), [](const Item& item) { return item.row; });
    }

private:
    void sort(Items begin, Items end, int depth)
    {
        for (Items item = begin; item != end; ++item)
            item->key = key_(item->row, depth) ^ flip_;
        keys_.sort(begin, end);
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
    KeySorter keys_;
};

// Keys of texts go on eight bytes deeper each time.
template <class TextOf>
void sortByText(std::vector<quint32>& rows, const CaseFold& fold, bool ascending, TextOf textOf)
{
    const auto key = [&](quint32 row, int depth) { return fold.key(textOf(row), depth * 8); };
    Sorter(key, ascending, rows.size()).sort(rows);
}

// Keys that tell all at the first look: their last byte is kept free.
template <class NumberOf>
void sortByNumber(std::vector<quint32>& rows, bool ascending, NumberOf numberOf)
{
    const auto key = [&](quint32 row, int) { return quint64(numberOf(row)) << 8; };
    Sorter(key, ascending, rows.size()).sort(rows);
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
    std::array<char, 19> text;
    sortByText(rows, fold, ascending, [&](quint32 row) -> QByteArrayView {
        const StoredEvent event = store.at(row);
        if (event.when == kNoStamp)
            return event.dateText;
        text = sortableText(event.when);
        return {text.data(), qsizetype(text.size())};
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
