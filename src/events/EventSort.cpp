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
    QByteArrayView text;
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

// What each event sorts by. It is fetched in the order of the store, which lies in memory in that order; the
// list's own order may lead anywhere.
template <class Value, class ValueOf>
std::vector<Value> inStoreOrder(const EventStore& store, ValueOf valueOf)
{
    std::vector<Value> values;
    values.reserve(store.size());
    for (quint32 row = 0; row < store.size(); ++row)
        values.push_back(valueOf(row));
    return values;
}

void takeRows(std::vector<quint32>& rows, const std::vector<Item>& items)
{
    std::transform(items.begin(), items.end(), rows.begin(), [](const Item& item) { return item.row; });
}

// Sorts by eight bytes of the texts at a time: first all rows by the start of their texts, then each run of
// equal ones by what follows.
class TextSorter
{
public:
    TextSorter(const CaseFold& fold, bool ascending, std::size_t count)
        : fold_(fold), flip_(ascending ? 0 : ~quint64(0)), keys_(count)
    {
    }

    void sort(Items begin, Items end, int depth = 0)
    {
        for (Items item = begin; item != end; ++item)
            item->key = fold_.key(item->text, depth * kKeyBytes) ^ flip_;
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

private:
    const CaseFold& fold_;
    quint64 flip_;
    KeySorter keys_;
};

template <class TextOf>
void sortByText(std::vector<quint32>& rows, const EventStore& store, const CaseFold& fold, bool ascending,
                TextOf textOf)
{
    const auto texts = inStoreOrder<QByteArrayView>(store, textOf);
    std::vector<Item> items(rows.size());
    std::transform(rows.begin(), rows.end(), items.begin(), [&](quint32 row) {
        return Item{0, row, texts[row]};
    });
    TextSorter(fold, ascending, rows.size()).sort(items.begin(), items.end());
    takeRows(rows, items);
}

template <class NumberOf>
void sortByNumber(std::vector<quint32>& rows, const EventStore& store, bool ascending, NumberOf numberOf)
{
    const quint64 flip = ascending ? 0 : ~quint64(0);
    const auto numbers = inStoreOrder<quint64>(store, numberOf);
    std::vector<Item> items(rows.size());
    std::transform(rows.begin(), rows.end(), items.begin(), [&](quint32 row) {
        return Item{numbers[row] ^ flip, row, {}};
    });
    KeySorter(rows.size()).sort(items.begin(), items.end());
    takeRows(rows, items);
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
        sortByNumber(rows, store, ascending, [&](quint32 row) { return store.when(row); });
        return;
    }
    const auto dates =
        inStoreOrder<std::array<char, 19>>(store, [&](quint32 row) { return sortableText(store.when(row)); });
    sortByText(rows, store, fold, ascending, [&](quint32 row) -> QByteArrayView {
        if (store.when(row) == kNoStamp)
            return store.at(row).dateText;
        return {dates[row].data(), qsizetype(dates[row].size())};
    });
}

} // namespace

void sortEvents(std::vector<quint32>& rows, const EventStore& store, const EventWords& words,
                const CaseFold& fold, EventColumn column, bool ascending)
{
    switch (column) {
    case EventColumn::Type:
        return sortByNumber(rows, store, ascending, [&, ranks = ranksOf(words.types)](quint32 row) {
            return ranks[store.type(row)];
        });
    case EventColumn::Date:
        return sortByDate(rows, store, fold, ascending);
    case EventColumn::Source:
        return sortByNumber(rows, store, ascending, [&, ranks = ranksOf(words.sources)](quint32 row) {
            return ranks[store.source(row)];
        });
    case EventColumn::Equipment:
        return sortByText(rows, store, fold, ascending, [&](quint32 row) { return store.at(row).equipment; });
    case EventColumn::Instrument:
        return sortByText(rows, store, fold, ascending,
                          [&](quint32 row) { return store.at(row).instrument; });
    case EventColumn::Description:
        return sortByText(rows, store, fold, ascending,
                          [&](quint32 row) { return store.at(row).description; });
    }
}

} // namespace events
