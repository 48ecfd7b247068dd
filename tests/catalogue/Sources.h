#pragma once

#include "catalogue/tool/Parser.h"

#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace catalogue::testing {

// A folder of sources that a test writes for itself.
class SourceFolder
{
public:
    QString path() const { return folder_.path(); }
    QString file(const QString& name) const { return folder_.filePath(name); }

    void write(const QString& name, const QString& text)
    {
        ASSERT_TRUE(QDir(folder_.path()).mkpath(QFileInfo(name).path()));
        QFile file(folder_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }

private:
    QTemporaryDir folder_;
};

// What a call is refused with, "file:line: reason" a line; "" when it isn't.
template <typename Call>
std::string refusal(Call call)
{
    try {
        call();
        return {};
    } catch (const Refused& refused) {
        return refused.what();
    }
}

inline Catalogue parsed(const QString& text)
{
    SourceFolder folder;
    folder.write(QStringLiteral("sample.txt"), text);
    Problems problems;
    Catalogue catalogue = parse(readSource(folder.path(), QStringLiteral("sample.txt"), problems), problems);
    if (!problems.empty())
        throw Refused(std::move(problems));
    return catalogue;
}

} // namespace catalogue::testing
