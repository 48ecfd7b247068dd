#pragma once

#include <QIdentityProxyModel>

namespace platform {

// The files of a file dialog with sizes and dates as the language of the program writes them: the toolkit
// takes the machine's.
class FileWords : public QIdentityProxyModel
{
    Q_OBJECT

public:
    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant data(const QModelIndex& index, int role) const override;
};

} // namespace platform
