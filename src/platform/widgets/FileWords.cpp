#include "platform/widgets/FileWords.h"

#include <QDateTime>
#include <QFileSystemModel>
#include <QLocale>

namespace platform {

namespace {

constexpr int kSize = 1;
constexpr int kDate = 3;

} // namespace

QVariant FileWords::data(const QModelIndex& index, int role) const
{
    const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
    if (role != Qt::DisplayRole || !files || (index.column() != kSize && index.column() != kDate))
        return QIdentityProxyModel::data(index, role);
    const QModelIndex file = mapToSource(index);
    if (index.column() == kDate)
        return QLocale().toString(files->lastModified(file), QLocale::ShortFormat);
    return files->isDir(file) ? QString() : QLocale().formattedDataSize(files->size(file));
}

} // namespace platform
