#pragma once

#include <QMap>
#include <QStringList>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace support {

// A type of instrument's parameter, as the catalogue has it.
struct PlainParam
{
    QString IDParGrp, IDPar, caption, KeyType, mask, IDCopy;
    std::optional<QString> unit, value;
};

// A plant in the plainest form there is: what a company must hold after the jobs that a test did on it.
struct PlainPlant
{
    struct Value
    {
        const PlainParam* param;
        std::optional<QString> value;
        int state = 0;
    };
    struct Instrument
    {
        QString type, name, description, address;
        std::map<QString, Value> values; // by IDPar
        std::set<QString> nodes = {};    // the parameter groups that the tree shows below it

        // Those of its values are shown, too.
        void showGroups();
    };
    struct Group
    {
        QString name, description, phone;
        std::map<int, Instrument> instruments;
    };

    std::map<int, Group> groups;

    int freeGroup() const { return groups.empty() ? 1 : groups.rbegin()->first + 1; }
    int freeInstrument(int group) const;
    // Takes the element of a key away with all that is below it.
    void remove(const QString& key);
    // Copies an element of that key, under a free number, and returns the copy's key.
    QString copy(const QString& key, int targetGroup);
    // Adds what the catalogue has and the instruments below the key lack; returns how many parameters.
    int synchronize(const QString& key, const std::map<QString, std::vector<PlainParam>>& catalogue);
    // Clears the marks below the key.
    void reset(const QString& key);
    // Whether the element of that key is there.
    bool contains(const QString& key) const;
    // The values of the block that holds the parameter go to the other blocks, place by place.
    static void copyBlock(Instrument& instrument, const QString& IDPar, const QStringList& blocks);

    // Does something with each instrument that stands at the key, below it or above it.
    void eachInstrument(const QString& key, const std::function<void(Instrument&)>& work);

    // Every row of the three tables as a text, sorted.
    QStringList rows() const;
    // Key and caption of every group and instrument, sorted.
    QStringList nodes() const;
};

// The statement whose rows are those of PlainPlant::rows().
extern const char* const kRowsOfPlant;

QString keyOf(int group);
QString keyOf(int group, int instrument);

} // namespace support
