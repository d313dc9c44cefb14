// SPDX-License-Identifier: MIT
#include "initext.h"

#include <array>
#include <optional>
#include <string_view>

namespace {

using Bytes = std::string_view;

constexpr Bytes HexDigits = "0123456789abcdef";
constexpr Bytes SectionOfShortKeys = "general"; // in any case; a section that really bears the name is written escaped

struct Escape
{
    char letter;
    char character;
};

constexpr std::array<Escape, 11> Escapes{ { { 'a', '\a' },
                                            { 'b', '\b' },
                                            { 'f', '\f' },
                                            { 'n', '\n' },
                                            { 'r', '\r' },
                                            { 't', '\t' },
                                            { 'v', '\v' },
                                            { '"', '"' },
                                            { '?', '?' },
                                            { '\'', '\'' },
                                            { '\\', '\\' } } };

bool IsLetterOrDigit(unsigned int c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool IsControl(char c) { return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7f; }

bool IsBeyondAscii(char c) { return static_cast<unsigned char>(c) >= 0x80; }

//! Value of a digit; 16 for another character.
unsigned int DigitValue(char c)
{
    if (c >= '0' && c <= '9')
        return static_cast<unsigned int>(c - '0');
    if (c >= 'a' && c <= 'f')
        return static_cast<unsigned int>(c - 'a') + 10;
    if (c >= 'A' && c <= 'F')
        return static_cast<unsigned int>(c - 'A') + 10;
    return 16;
}

Bytes Trimmed(Bytes text)
{
    constexpr Bytes Blanks = " \t";
    size_t const first = text.find_first_not_of(Blanks);
    if (first == Bytes::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

bool EqualsInAnyCase(Bytes text, Bytes lowerCase)
{
    if (text.size() != lowerCase.size())
        return false;
    for (size_t i = 0; i < text.size(); ++i) {
        bool const upper = text[i] >= 'A' && text[i] <= 'Z';
        if ((upper ? static_cast<char>(text[i] - 'A' + 'a') : text[i]) != lowerCase[i])
            return false;
    }
    return true;
}

void AppendHex(QByteArray & out, unsigned int value, int minDigits)
{
    for (int digit = 3; digit >= 0; --digit) {
        unsigned int const rest = value >> (4 * digit);
        if (rest != 0 || digit < minDigits)
            out += HexDigits[rest & 0xf];
    }
}

// --- keys
// -------------------------------------------------------------------------------------------------------------

//! Whether the "/" at a place parts two levels that are not empty.
bool PartsLevels(QString const & key, decltype(key.size()) place)
{
    return place > 0 && place + 1 < key.size() && key.at(place - 1) != QLatin1Char('/');
}

QByteArray PrintedKey(QString const & key)
{
    QByteArray out;
    for (decltype(key.size()) i = 0; i < key.size(); ++i) {
        unsigned int const c = key.at(i).unicode();
        if (IsLetterOrDigit(c) || c == '_' || c == '-' || c == '.') {
            out += static_cast<char>(c);
        } else if (c == '/' && PartsLevels(key, i)) {
            out += '\\';
        } else if (c <= 0xff) {
            out += '%';
            AppendHex(out, c, 2);
        } else {
            out += "%U";
            AppendHex(out, c, 4);
        }
    }
    return out;
}

QByteArray PrintedSection(QString const & section)
{
    QByteArray name = PrintedKey(section);
    if (EqualsInAnyCase({ name.constData(), static_cast<size_t>(name.size()) }, SectionOfShortKeys)) {
        QByteArray first("%");
        AppendHex(first, static_cast<unsigned char>(name.at(0)), 2);
        name.replace(0, 1, first);
    }
    return '[' + name + "]\n";
}

//! Reads hexadecimal digits, exactly count of them, and moves place behind them.
std::optional<char16_t> ReadHex(Bytes text, size_t & place, size_t count)
{
    unsigned int value = 0;
    for (size_t end = place + count; place < end; ++place) {
        unsigned int const digit = place < text.size() ? DigitValue(text[place]) : 16;
        if (digit > 15)
            return {};
        value = value * 16 + digit;
    }
    return static_cast<char16_t>(value);
}

//! Reads a run of bytes beyond ASCII as UTF-8 and moves place behind it; false when it is none.
bool ReadUtf8(Bytes text, size_t & place, QString & out)
{
    size_t const start = place;
    while (place < text.size() && IsBeyondAscii(text[place]))
        ++place;
    QByteArray const run(text.data() + start, static_cast<int>(place - start));
    QString const decoded = QString::fromUtf8(run);
    out += decoded;
    return decoded.toUtf8() == run; // what is no UTF-8 became a replacement character
}

std::optional<QString> ReadKey(Bytes text)
{
    QString key(QLatin1String(""));
    for (size_t i = 0; i < text.size();) {
        char const c = text[i];
        if (IsControl(c))
            return {};
        if (IsBeyondAscii(c)) {
            if (!ReadUtf8(text, i, key))
                return {};
            continue;
        }
        ++i;
        if (c == '%') {
            bool const wide = i < text.size() && text[i] == 'U';
            i += wide ? 1 : 0;
            auto const character = ReadHex(text, i, wide ? 4 : 2);
            if (!character)
                return {};
            key += QChar(*character);
        } else {
            key += QLatin1Char(c == '\\' ? '/' : c);
        }
    }
    return key;
}

// --- texts
// ------------------------------------------------------------------------------------------------------------

bool IsPlain(QString const & text)
{
    for (QChar const character : text) {
        unsigned int const c = character.unicode();
        if (!IsLetterOrDigit(c) && c != '+' && c != '-' && c != '.' && c != '_')
            return false;
    }
    return !text.isEmpty();
}

void AppendEscaped(QByteArray & out, QString const & text)
{
    bool behindHex = false; // a digit there would be taken for a part of the escape
    for (QChar const character : text) {
        unsigned int const c = character.unicode();
        bool const takenForHex = behindHex && c < 0x80 && DigitValue(static_cast<char>(c)) < 16;
        behindHex = false;
        if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else if (c == '\t') {
            out += "\\t";
        } else if (c < 0x20 || c >= 0x7f || takenForHex) {
            out += "\\x";
            AppendHex(out, c, 1);
            behindHex = true;
        } else {
            if (c == '"' || c == '\\')
                out += '\\';
            out += static_cast<char>(c);
        }
    }
}

void AppendEntry(QByteArray & out, QString const & key, QString const & text)
{
    out += PrintedKey(key);
    out += '=';
    if (IsPlain(text)) {
        out += text.toLatin1();
    } else {
        out += '"';
        if (text.startsWith(QLatin1Char('@')))
            out += '@'; // a single one opens a typed value there
        AppendEscaped(out, text);
        out += '"';
    }
    out += '\n';
}

//! Reads the digits of a numeric escape, as many as there are, and moves place behind them.
std::optional<char16_t> ReadDigits(Bytes text, size_t & place, unsigned int base)
{
    size_t const start = place;
    unsigned int value = 0;
    for (; place < text.size() && DigitValue(text[place]) < base; ++place) {
        value = value * base + DigitValue(text[place]);
        if (value > 0xffff)
            return {};
    }
    if (place == start)
        return {};
    return static_cast<char16_t>(value);
}

//! Reads what follows a backslash and moves place behind it.
std::optional<char16_t> ReadEscape(Bytes text, size_t & place)
{
    if (place >= text.size())
        return {};
    char const letter = text[place];
    if (letter >= '0' && letter <= '7')
        return ReadDigits(text, place, 8);
    ++place;
    if (letter == 'x')
        return ReadDigits(text, place, 16);
    for (Escape const & escape : Escapes)
        if (escape.letter == letter)
            return static_cast<char16_t>(escape.character);
    return {};
}

//! Reads the bytes that stand for themselves, as many as there are, and moves place behind them.
void ReadPlain(Bytes text, size_t & place, QString & out)
{
    size_t const start = place;
    while (place < text.size() && !IsControl(text[place]) && !IsBeyondAscii(text[place]) && text[place] != '"' &&
           text[place] != '\\')
        ++place;
    out += QLatin1String(text.data() + start, static_cast<int>(place - start));
}

std::optional<QString> ReadText(Bytes text)
{
    QString out(QLatin1String(""));
    bool const quoted = !text.empty() && text.front() == '"';
    bool open = quoted;
    for (size_t i = quoted ? 1 : 0; i < text.size();) {
        char const c = text[i];
        if (IsControl(c) || (quoted && !open))
            return {};
        if (IsBeyondAscii(c)) {
            if (!ReadUtf8(text, i, out))
                return {};
            continue;
        }
        if (c != '"' && c != '\\') {
            ReadPlain(text, i, out);
            continue;
        }
        ++i;
        if (c == '"') {
            if (!quoted)
                return {};
            open = false;
        } else {
            auto const character = ReadEscape(text, i);
            if (!character)
                return {};
            out += QChar(*character);
        }
    }
    if (open)
        return {};
    return out.startsWith(QLatin1String("@@")) ? out.mid(1) : out;
}

// --- files
// ------------------------------------------------------------------------------------------------------------

QByteArray WithoutMark(QByteArray const & bytes)
{
    if (bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff"))
        return QString::fromUtf16(reinterpret_cast<char16_t const *>(bytes.constData()), bytes.size() / 2).toUtf8();
    return bytes.startsWith("\xef\xbb\xbf") ? bytes.mid(3) : bytes;
}

//! Takes lines in one by one.
class Reader
{
public:
    void Take(Bytes rawLine)
    {
        ++m_line;
        Bytes const line = Trimmed(rawLine);
        if (line.empty() || line.front() == ';' || line.front() == '#')
            return;
        size_t const equals = line.find('=');
        bool const closed = line.back() == ']';
        bool good = false;
        bool const opened = line.front() == '[';
        if (opened && (closed || equals == Bytes::npos))
            good = TakeSection(line);
        else if (!opened && equals != Bytes::npos)
            good = m_inSection && TakeEntry(Trimmed(line.substr(0, equals)), Trimmed(line.substr(equals + 1)));
        else if (closed || (opened && line.find(']') < equals))
            m_inSection = false; // a section whose opening bracket or line end is gone
        if (good)
            return;
        if (m_parsed.damagedLines++ == 0)
            m_parsed.firstDamaged = m_line;
    }

    IniText::Parsed const & Result() const { return m_parsed; }

private:
    bool TakeSection(Bytes line)
    {
        m_inSection = false;
        if (line.size() < 3 || line.back() != ']')
            return false;
        Bytes const name = Trimmed(line.substr(1, line.size() - 2));
        if (EqualsInAnyCase(name, SectionOfShortKeys)) {
            m_prefix = QString();
        } else if (EqualsInAnyCase(name, "%general")) {
            m_prefix = QStringLiteral("General/");
        } else if (auto const section = ReadKey(name)) {
            m_prefix = *section + QLatin1Char('/');
        } else {
            return false;
        }
        m_inSection = true;
        return true;
    }

    bool TakeEntry(Bytes keyBytes, Bytes textBytes)
    {
        auto const key = ReadKey(keyBytes);
        auto const text = ReadText(textBytes);
        if (!key || !text)
            return false;
        m_parsed.entries.insert(m_prefix + *key, *text);
        return true;
    }

    IniText::Parsed m_parsed;
    QString m_prefix;
    bool m_inSection = true;
    int m_line = 0;
};

} // namespace

QByteArray IniText::Print(Entries const & entries)
{
    QByteArray shortKeys;
    QByteArray sections;
    QString current;
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        QString const & key = entry.key();
        auto const slash = key.indexOf(QLatin1Char('/'));
        if (slash < 0 || !PartsLevels(key, slash)) {
            AppendEntry(shortKeys, key, entry.value());
            continue;
        }
        QString const section = key.left(slash);
        if (sections.isEmpty() || section != current) {
            current = section;
            sections += (sections.isEmpty() ? QByteArray() : QByteArray("\n")) + PrintedSection(section);
        }
        AppendEntry(sections, key.mid(slash + 1), entry.value());
    }
    if (!shortKeys.isEmpty())
        shortKeys.prepend("[General]\n");
    return shortKeys + (shortKeys.isEmpty() || sections.isEmpty() ? "" : "\n") + sections;
}

IniText::Parsed IniText::Parse(QByteArray const & bytes)
{
    QByteArray const plain = WithoutMark(bytes);
    Bytes rest(plain.constData(), static_cast<size_t>(plain.size()));
    Reader reader;
    while (!rest.empty()) {
        size_t const end = rest.find_first_of("\r\n");
        reader.Take(rest.substr(0, end));
        if (end == Bytes::npos)
            break;
        bool const both = rest[end] == '\r' && end + 1 < rest.size() && rest[end + 1] == '\n';
        rest.remove_prefix(end + (both ? 2 : 1));
    }
    return reader.Result();
}
