#pragma once

#include <QString>

// A company made for the line: one group with two instruments.
//
//   1  the group's master, one parameter group "G1" of 1,000 parameters of one byte in four banks
//   2  one bank of 255 bytes that holds 60 parameters, of every wire type in turn
namespace lineCompany {

constexpr int kParameters = 1000;
constexpr int kBankSize = 255;
constexpr int kInBank = 60;

inline const QString kManyKey = QStringLiteral("3_1_1_G1"); // read one by one
inline const QString kBankKey = QStringLiteral("2_1_2");    // read as a bank

// Throws what the engine throws.
void make(const QString& file);

} // namespace lineCompany
