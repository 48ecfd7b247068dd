#include "events/EventSort.h"

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
    KeySorter(std::size_t most, const std::atomic<bool>& stop) : spare_(most), stop_(stop) {}

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
        for (int byte = 0; byte < kKeyBytes && !stop_; ++byte) {
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
    const std::atomic<bool>& stop_;
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
    TextSorter(const EventOrder& by, std::size_t count, const std::atomic<bool>& stop)
        : fold_(by.fold), flip_(by.ascending ? 0 : ~quint64(0)), keys_(count, stop), stop_(stop)
    {
    }

    void sort(Items begin, Items end, int depth = 0)
    {
        for (Items item = begin; item != end; ++item)
            item->key = fold_.key(item->text, depth * kKeyBytes) ^ flip_;
        keys_.sort(begin, end);
        while (begin != end && !stop_) {
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
    const std::atomic<bool>& stop_;
};

class Sorting
{
public:
    Sorting(std::vector<quint32>& rows, const EventStore& store, const EventOrder& by,
            const std::atomic<bool>& stop)
        : rows_(rows), store_(store), by_(by), stop_(stop)
    {
    }

    template <class TextOf>
    void byText(TextOf textOf)
    {
        const auto texts = inStoreOrder<QByteArrayView>(store_, textOf);
        std::vector<Item> items(rows_.size());
        std::transform(rows_.begin(), rows_.end(), items.begin(), [&](quint32 row) {
            return Item{0, row, texts[row]};
        });
        TextSorter(by_, rows_.size(), stop_).sort(items.begin(), items.end());
        takeRows(rows_, items);
    }

    template <class NumberOf>
    void byNumber(NumberOf numberOf)
    {
        const quint64 flip = by_.ascending ? 0 : ~quint64(0);
        const auto numbers = inStoreOrder<quint64>(store_, numberOf);
        std::vector<Item> items(rows_.size());
        std::transform(rows_.begin(), rows_.end(), items.begin(), [&](quint32 row) {
            return Item{numbers[row] ^ flip, row, {}};
        });
        KeySorter(rows_.size(), stop_).sort(items.begin(), items.end());
        takeRows(rows_, items);
    }

    void byDate()
    {
        if (store_.allDated()) {
            byNumber([&](quint32 row) { return store_.when(row); });
            return;
        }
        const auto dates = inStoreOrder<std::array<char, 19>>(
            store_, [&](quint32 row) { return sortableText(store_.when(row)); });
        byText([&](quint32 row) -> QByteArrayView {
            if (store_.when(row) == kNoStamp)
                return store_.at(row).dateText;
            return {dates[row].data(), qsizetype(dates[row].size())};
        });
    }

private:
    std::vector<quint32>& rows_;
    const EventStore& store_;
    const EventOrder& by_;
    const std::atomic<bool>& stop_;
};

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

} // namespace

void sortEvents(std::vector<quint32>& rows, const EventStore& store, const EventOrder& by,
                const std::atomic<bool>& stop)
{
    Sorting sorting(rows, store, by, stop);
    switch (by.column) {
    case EventColumn::Type:
        return sorting.byNumber(
            [&, ranks = ranksOf(by.words.types)](quint32 row) { return ranks[store.type(row)]; });
    case EventColumn::Date:
        return sorting.byDate();
    case EventColumn::Source:
        return sorting.byNumber(
            [&, ranks = ranksOf(by.words.sources)](quint32 row) { return ranks[store.source(row)]; });
    case EventColumn::Equipment:
        return sorting.byText([&](quint32 row) { return store.at(row).equipment; });
    case EventColumn::Instrument:
        return sorting.byText([&](quint32 row) { return store.at(row).instrument; });
    case EventColumn::Description:
        return sorting.byText([&](quint32 row) { return store.at(row).description; });
    }
}

} // namespace events
