#include "catalogue/tool/Checks.h"
#include "catalogue/tool/CompanyWriter.h"
#include "catalogue/tool/MemoryWriter.h"
#include "catalogue/tool/ModelWriter.h"
#include "catalogue/tool/Page.h"
#include "catalogue/tool/Parser.h"

#include <QCoreApplication>
#include <QMap>
#include <cstdio>
#include <functional>

namespace {

constexpr const char* kUsage =
    "usage: calidora-catalogue model  <catalogue folder> <model.mdb>\n"
    "       calidora-catalogue page   <catalogue folder> <page.md>\n"
    "       calidora-catalogue demo   <catalogue folder> <demo source> <model.mdb> <company.mdb>\n"
    "       calidora-catalogue memory <catalogue folder> <demo source> <company.mdb> <memory.txt>\n";

// A catalogue that keeps every rule, or the list of what it breaks.
catalogue::Catalogue checkedCatalogue(const QString& folder)
{
    catalogue::Catalogue result = catalogue::readCatalogue(folder);
    if (catalogue::Problems problems = catalogue::problemsOf(result); !problems.empty())
        throw catalogue::Refused(std::move(problems));
    return result;
}

using Command = std::function<void(const QStringList& arguments)>;

const QMap<QString, std::pair<int, Command>>& commands()
{
    static const QMap<QString, std::pair<int, Command>> kCommands{
        {"model",
         {2,
          [](const QStringList& arguments) {
              catalogue::writeModel(checkedCatalogue(arguments[0]), arguments[0] + "/schema.sql",
                                    arguments[1]);
          }}},
        {"page",
         {2,
          [](const QStringList& arguments) {
              catalogue::writePage(checkedCatalogue(arguments[0]), arguments[1]);
          }}},
        {"demo",
         {4,
          [](const QStringList& arguments) {
              catalogue::writeCompany(catalogue::readDemo(arguments[1]), checkedCatalogue(arguments[0]),
                                      arguments[2], arguments[3]);
          }}},
        {"memory",
         {4,
          [](const QStringList& arguments) {
              catalogue::writeMemory(catalogue::readDemo(arguments[1]), checkedCatalogue(arguments[0]),
                                     arguments[2], arguments[3]);
          }}},
    };
    return kCommands;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const auto command = commands().constFind(arguments.value(0));
    if (command == commands().constEnd() || arguments.size() - 1 != command->first) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    try {
        command->second(arguments.mid(1));
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
