#include "tests/monkey/RandomText.h"

#include <QUrl>
#include <algorithm>
#include <iterator>

namespace {

constexpr const char16_t* fragments[] = {
    u"1",  u"2",     u"0.5",  u"1e300",   u"0xFF",   u"0b101", u"0o17", u"3±0.1", u"1,000", u"1 000", u"+",
    u"-",  u"*",     u"/",    u"^",       u"(",      u")",     u"=",    u"±",     u"!",     u"%",     u",",
    u".",  u"..",    u"ans",  u"ans1",    u"ans2",   u"pi",    u"π",    u"x",     u"r",     u"abc",   u"α",
    u"Ω",  u"длина", u"長さ", u"sin(",    u"cos(",   u"sqrt(", u"ln(",  u"log(",  u"cbrt(", u"abs(",  u"atan(",
    u"x=", u"r=",    u"α=",   u"nil",     u"sin",    u"sq",    u"co",   u" ",     u"  ",    u"−",     u"×",
    u"÷",  u"٣",     u"1/0",  u"0/0",     u"inf",    u"1e999", u"-",    u"e",     u"E",     u"2^",    u"ans*",
    u"𝜋",  u"😀=2",   u"é",    u"e\u0301", u"\u200E", u"\u00A0"};

constexpr const char16_t* shortLines[] = {u"2+3",    u"x=2",           u"x=x+1",   u"ans*3",   u"ans+ans1", u"1/3",
                                          u"10^9/7", u"r=2.5",         u"pi*r^2",  u"sin(30)", u"α=1/7",    u"α+x",
                                          u"ans2=5", u"2^0.5",         u"-ans",    u"0xFF",    u"1e-7/3",   u"sqrt 2",
                                          u"5±1",    u"123456789.123", u"y+1",     u"y=0b11",  u"1/0",      u"0/0",
                                          u"2+",     u"sin()",         u"(((1)))", u"cos(1",   u"длина=7",  u"+5"};

constexpr char16_t lineEnds[] = {u'\n', u'\r', u'\v', u'\f', u'\u0085', u'\u2028', u'\u2029', u'\uFDD0', u'\uFDD1'};
constexpr int longText = 20'000;
constexpr unsigned int bmpSize = 0x10000;
constexpr unsigned int firstAbove = 0x1F300;  // pictures
constexpr unsigned int countAbove = 0x300;

}  // namespace

QString RandomText::fragment() { return QString::fromUtf16(random_.oneOf(fragments)); }

QString RandomText::line() {
    if (random_.oneIn(2)) return QString::fromUtf16(random_.oneOf(shortLines));
    if (!random_.oneIn(4)) return QString::fromStdU16String(writer_.line());
    QString text;
    for (int count = random_.between(1, 7); count > 0; --count) text += fragment();
    return text;
}

QString RandomText::character() {
    switch (random_.below(8)) {
        case 0: return QString(QChar(static_cast<char16_t>(random_.below(bmpSize))));
        case 1: return QString::fromUcs4(U"\U0001D70B", 1);
        case 2: {
            const auto picture = static_cast<char32_t>(firstAbove + random_.below(countAbove));
            return QString::fromUcs4(&picture, 1);
        }
        case 3: return QString(QChar(static_cast<char16_t>(random_.below(0x20))));
        case 4: return QString(QChar(static_cast<char16_t>(random_.between(0x391, 0x3C9))));
        default: return QString(QChar(static_cast<char16_t>(random_.between(0x20, 0x7E))));
    }
}

QString RandomText::strange(int length) {
    QString text;
    while (text.size() < length) text += character();
    return text;
}

QString RandomText::linesAround(const QString& separator) {
    const QString first = line();
    return first + separator + line();
}

QString RandomText::foreign() {
    switch (random_.below(12)) {
        case 0: return linesAround(QChar(random_.oneOf(lineEnds)));
        case 1: return '\n' + linesAround(QStringLiteral("\r\n\n")) + QChar(random_.oneOf(lineEnds));
        case 2: return linesAround(QChar(0));
        case 3: return strange(random_.between(1, 40));
        case 4: return random_.oneIn(12) ? QString(longText, u'7') : QString(300, u'(');
        case 5: return random_.oneIn(12) ? strange(longText) : QString();
        case 6: return QStringLiteral("<b>2</b> + <i>3</i> &amp; <img src=\"x.png\">");
        case 7: return QStringLiteral("\t= 1,234.5");
        case 8: return fragment();
        default: return line();
    }
}

std::unique_ptr<QMimeData> RandomText::mimeData() {
    auto data = std::make_unique<QMimeData>();
    const std::size_t kind = random_.below(10);
    if (kind != 0) data->setText(foreign());
    if (kind <= 1) data->setHtml("<p>" + foreign() + "</p><table><tr><td>2</td></tr></table>");
    if (kind == 2) data->setUrls({QUrl(QStringLiteral("file:///nowhere/1+2.txt"))});
    if (kind == 3) data->setData(QStringLiteral("application/octet-stream"), QByteArray(100, '\xFF'));
    return data;
}
