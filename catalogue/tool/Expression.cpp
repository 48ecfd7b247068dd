#include "catalogue/tool/Expression.h"

namespace catalogue {

namespace {

// sum := product (("+" | "-") product)*, product := factor ("*" factor)*, factor := number | name | "(" sum
// ")"
class Evaluation
{
public:
    Evaluation(QString text, const Variables& variables, const Origin& origin)
        : text_(std::move(text)), variables_(variables), origin_(origin)
    {
    }

    int value()
    {
        const int result = sum();
        if (!next().isNull())
            fail();
        return result;
    }

private:
    QChar next()
    {
        while (at_ < text_.size() && text_[at_].isSpace())
            ++at_;
        return at_ < text_.size() ? text_[at_] : QChar();
    }

    bool take(QChar sign)
    {
        if (next() != sign)
            return false;
        ++at_;
        return true;
    }

    int sum()
    {
        int result = product();
        while (true) {
            if (take('+'))
                result += product();
            else if (take('-'))
                result -= product();
            else
                return result;
        }
    }

    int product()
    {
        int result = factor();
        while (take('*'))
            result *= factor();
        return result;
    }

    int factor()
    {
        if (take('(')) {
            const int result = sum();
            if (!take(')'))
                fail();
            return result;
        }
        if (!next().isLetterOrNumber())
            fail();
        QString word;
        while (at_ < text_.size() && text_[at_].isLetterOrNumber())
            word += text_[at_++];
        bool isNumber = false;
        const int number = word.toInt(&isNumber);
        if (isNumber)
            return number;
        if (!variables_.contains(word))
            refuse(origin_, QStringLiteral("\"%1\" is not known here").arg(word));
        return variables_.value(word);
    }

    [[noreturn]] void fail() const
    {
        refuse(origin_, QStringLiteral("\"{%1}\" is not an expression").arg(text_));
    }

    QString text_;
    const Variables& variables_;
    const Origin& origin_;
    qsizetype at_ = 0;
};

QString valueOf(const QString& braced, const Variables& variables, const Origin& origin)
{
    const qsizetype colon = braced.indexOf(':');
    const int value = Evaluation(colon < 0 ? braced : braced.left(colon), variables, origin).value();
    if (colon < 0)
        return QString::number(value);
    bool isWidth = false;
    const int width = braced.mid(colon + 1).toInt(&isWidth);
    if (!isWidth || width < 1 || width > 9)
        refuse(origin, QStringLiteral("\"{%1}\" has no width from 1 to 9").arg(braced));
    return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
}

} // namespace

QString expand(const QString& text, const Variables& variables, const Origin& origin)
{
    QString result;
    qsizetype from = 0;
    while (true) {
        const qsizetype open = text.indexOf('{', from);
        if (open < 0)
            return result + text.mid(from);
        const qsizetype close = text.indexOf('}', open);
        if (close < 0)
            refuse(origin, QStringLiteral("a \"{\" that nothing closes"));
        result += text.mid(from, open - from);
        result += valueOf(text.mid(open + 1, close - open - 1), variables, origin);
        from = close + 1;
    }
}

} // namespace catalogue
