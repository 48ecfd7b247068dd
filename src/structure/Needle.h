#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace structure {

// A text that others are searched for: plain characters, in any case of any alphabet.
class Needle
{
public:
    explicit Needle(const QString& text);

    bool isEmpty() const { return text_.isEmpty(); }
    bool isIn(const QString& text) const { return text.contains(text_, Qt::CaseInsensitive); }
    // The same for a text in UTF-8, without a conversion where one can be spared.
    bool isIn(std::string_view utf8) const;

private:
    QString text_;
    std::string ascii_; // in lower case; "" when the needle holds other characters too
};

} // namespace structure
