#include "catalogue/tool/ModelReader.h"
#include "catalogue/tool/Database.h"

namespace catalogue {

namespace {

constexpr const char* kParameters =
    "SELECT tbParam.mID, tbParamType.mTag, tbParam.mType, tbParam.mDftValue, tbParam.mMemBank, "
    "tbParam.mAddr, "
    "tbParam.mWriteAddr, tbParam.mWriteCmd, tbParam.mSize, tbParam.mBitFirst, tbParam.mBitCount, "
    "tbParam.mLW, "
    "tbParam.mHW, tbParam.mLR, tbParam.mHR, tbParam.mLL, tbParam.mHL, tbParam.mEnable "
    "FROM tbParam INNER JOIN tbParamType ON tbParam.mKeyType = tbParamType.mID "
    "INNER JOIN tbParamGroup ON tbParam.mKeyParGroup = tbParamGroup.mID "
    "INNER JOIN tbInstrument ON tbParamGroup.mKeyInst = tbInstrument.mID "
    "WHERE tbInstrument.mTag = ? ORDER BY tbParam.mID";

Parameter parameterOf(SQLite::Statement& row)
{
    Parameter parameter;
    parameter.id = textOf(row.getColumn(0));
    parameter.key = textOf(row.getColumn(1));
    parameter.wire = textOf(row.getColumn(2));
    if (!row.getColumn(3).isNull())
        parameter.standard = textOf(row.getColumn(3));
    parameter.bank = row.getColumn(4).getInt();
    parameter.address = row.getColumn(5).getInt();
    parameter.writeAddress = row.getColumn(6).getInt();
    parameter.writeCmd = textOf(row.getColumn(7)).toInt();
    parameter.size = row.getColumn(8).getInt();
    parameter.bitFirst = row.getColumn(9).getInt();
    parameter.bitCount = row.getColumn(10).getInt();
    parameter.scale = {row.getColumn(11).getDouble(), row.getColumn(12).getDouble(),
                       row.getColumn(13).getDouble(), row.getColumn(14).getDouble()};
    parameter.low = row.getColumn(15).getDouble();
    parameter.high = row.getColumn(16).getDouble();
    parameter.editable = row.getColumn(17).getInt() != 0;
    return parameter;
}

} // namespace

std::vector<Parameter> parametersOf(SQLite::Database& database, const QString& typeTag)
{
    std::vector<Parameter> parameters;
    SQLite::Statement statement(database, kParameters);
    bindText(statement, 1, typeTag);
    while (statement.executeStep())
        parameters.push_back(parameterOf(statement));
    return parameters;
}

std::vector<Bank> banksOf(SQLite::Database& database)
{
    std::vector<Bank> banks;
    SQLite::Statement statement(
        database, "SELECT mID, mReadCmd, mWriteCmd, mStartAddr, mSize, mTag FROM tbInstMem ORDER BY mID");
    while (statement.executeStep()) {
        Bank bank;
        bank.id = statement.getColumn(0).getInt();
        bank.readCmd = textOf(statement.getColumn(1)).toInt();
        bank.writeCmd = textOf(statement.getColumn(2)).toInt();
        bank.start = statement.getColumn(3).getInt();
        bank.size = statement.getColumn(4).getInt();
        bank.tag = textOf(statement.getColumn(5));
        banks.push_back(bank);
    }
    return banks;
}

} // namespace catalogue
