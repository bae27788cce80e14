// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "catalogue/UnitMatcher.h"

#include "catalogue/Catalogue.h"

#include <algorithm>
#include <tuple>

namespace
{

// "watt (J/s) (W)" -> bare name "watt", symbols "J/s" and "W".
void splitBrackets(const QString &name, QString &bare, QStringList &symbols)
{
    const QStringView text(name);
    qsizetype depth = 0, open = 0, outside = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'(') {
            if (depth++ == 0) {
                bare += text.sliced(outside, i - outside);
                open = i;
            }
        } else if (text[i] == u')' && depth > 0 && --depth == 0) {
            const QStringView symbol = text.sliced(open + 1, i - open - 1).trimmed();
            if (!symbol.isEmpty())
                symbols.append(symbol.toString());
            outside = i + 1;
        }
    }
    if (depth == 0) // an unclosed bracket runs to the end of the name
        bare += text.sliced(outside);
}

// The text with runs of white space as one blank and none at the ends. Most texts have at
// most blanks at their ends (a name without its last bracket): trimming them is enough.
QString simplified(QString text)
{
    const QStringView inner = QStringView(text).trimmed();
    for (qsizetype i = 0; i < inner.size(); ++i)
        if (inner[i].isSpace() && (inner[i] != u' ' || inner[i + 1].isSpace()))
            return text.simplified();
    return inner.size() == text.size() ? text : inner.toString();
}

// Appends the character fully decomposed, compatibility forms included, without its marks:
// "å" as "a", "µ" as "μ", "²" as "2".
void appendWithoutMarks(QString &out, char32_t c)
{
    if (QChar::decompositionTag(c) == QChar::NoDecomposition) {
        if (QChar::category(c) != QChar::Mark_NonSpacing)
            out += QStringView(QChar::fromUcs4(c));
        return;
    }
    const QString parts = QChar::decomposition(c);
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (parts[i].isHighSurrogate() && i + 1 < parts.size()) {
            appendWithoutMarks(out, QChar::surrogateToUcs4(parts[i], parts[i + 1]));
            ++i;
        } else {
            appendWithoutMarks(out, parts[i].unicode());
        }
    }
}

// A name as compared in any letter case: accents and blanks do not count, nor does a hyphen
// against a blank ("pound force"), nor the American "meter" and "liter".
QString nameKey(QStringView text)
{
    QString key;
    key.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c.unicode() < 0x80) {
            key += c == u'-' ? QChar(u' ') : c;
        } else if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            appendWithoutMarks(key, QChar::surrogateToUcs4(c, text[i + 1]));
            ++i;
        } else {
            appendWithoutMarks(key, c.unicode());
        }
    }
    key = simplified(std::move(key)).toCaseFolded();
    if (key.contains(QLatin1String("ter"))) {
        key.replace(QLatin1String("meter"), QLatin1String("metre"));
        key.replace(QLatin1String("liter"), QLatin1String("litre"));
    }
    return key;
}

// A symbol as written, with the compatibility forms of its characters made plain: fullwidth
// letters, the micro sign as the Greek mu, a no-break space as a blank; the ohm, kelvin and
// ångström signs as their letters. Superscripts stay: "m²" is the symbol as written, "m2" as
// typed.
QString symbolForm(QStringView text)
{
    QString form;
    form.reserve(text.size());
    bool marks = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].unicode() < 0x80) {
            form += text[i];
            continue;
        }
        char32_t c = text[i].unicode();
        qsizetype length = 1;
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            c = QChar::surrogateToUcs4(text[i], text[i + 1]);
            length = 2;
        }
        const QStringView character = text.sliced(i, length);
        const QChar::Decomposition tag = QChar::decompositionTag(c);
        if (tag == QChar::NoDecomposition || tag == QChar::Super) {
            form += character;
            marks = marks || QChar::isMark(c);
        } else {
            form += character.toString().normalized(tag == QChar::Canonical
                    ? QString::NormalizationForm_C
                    : QString::NormalizationForm_KC);
        }
        i += length - 1;
    }
    // Letters typed with separate accents become the letters written with them.
    if (marks)
        form = form.normalized(QString::NormalizationForm_C);
    return simplified(std::move(form));
}

// A symbol (in its symbolForm) as typed on a plain keyboard: without the signs that join
// factors ("·", ".", "-", blanks) and without "^"; superscript digits as digits, "μ" as "u",
// "Ω" as "ohm", "deg" in any case as "°", a prime as an apostrophe. "kW·h", "kW.h", "kW h"
// and "kWh" all come to "kWh"; "ft³/min" and "ft^3/min" to "ft3/min".
QString typedKey(QStringView form)
{
    QString key;
    key.reserve(form.size());
    for (qsizetype i = 0; i < form.size(); ++i) {
        const QChar c = form[i];
        if ((c == u'd' || c == u'D') && form.sliced(i).startsWith(u"deg", Qt::CaseInsensitive)) {
            key += QChar(0x00B0);
            i += 2;
            continue;
        }
        switch (c.unicode()) {
        case u' ':
        case u'.':
        case u'-':
        case u'*':
        case u'^':
        case 0x00B7: // middle dot
        case 0x00D7: // multiplication sign
        case 0x2010: // hyphen
        case 0x2011: // non-breaking hyphen
        case 0x2022: // bullet
        case 0x2212: // minus sign
        case 0x2219: // bullet operator
        case 0x22C5: // dot operator
            break;
        case 0x03BC: // mu, the micro sign's plain form
            key += u'u';
            break;
        case 0x03A9: // omega, the ohm sign's plain form
            key += QLatin1String("ohm");
            break;
        case 0x2032: // prime
            key += u'\'';
            break;
        default:
            if (c.decompositionTag() == QChar::Super)
                key += QString(c).normalized(QString::NormalizationForm_KC);
            else
                key += c;
        }
    }
    return key;
}

// "°F" -> "F": a degree sign before a letter left out.
QString withoutDegrees(const QString &key)
{
    if (!key.contains(QChar(0x00B0)))
        return key;
    QString bare;
    bare.reserve(key.size());
    for (qsizetype i = 0; i < key.size(); ++i)
        if (key[i] != QChar(0x00B0) || i + 1 == key.size() || !key[i + 1].isLetter())
            bare += key[i];
    return bare;
}

// "ft·lbf" -> "lbf·ft", "ft·lbf/s" -> "lbf·ft/s"; empty for anything but a product of two
// factors (with what it is divided by).
QString swappedFactors(const QString &form)
{
    const QStringView text(form);
    const qsizetype dot = text.indexOf(QChar(0x00B7));
    if (dot <= 0 || text.indexOf(QChar(0x00B7), dot + 1) >= 0)
        return QString();
    const QStringView first = text.first(dot);
    qsizetype end = text.indexOf(u'/', dot + 1);
    if (end < 0)
        end = text.size();
    const QStringView second = text.sliced(dot + 1, end - dot - 1);
    auto plain = [](QStringView factor) {
        return !factor.isEmpty() && !factor.contains(u'/') && !factor.contains(u'(')
            && !factor.contains(u')');
    };
    if (!plain(first) || !plain(second))
        return QString();
    QString swapped = second.toString();
    swapped += QChar(0x00B7);
    swapped += first;
    swapped += text.sliced(end);
    return swapped;
}

// Letters of other scripts that look like Latin ones, for suggestions only: "м" is not "m".
QString latinLookAlikes(const QString &text)
{
    static constexpr struct {
        char16_t lookAlike;
        char latin;
    } LookAlikes[] = { { u'\u0430', 'a' }, { u'\u0435', 'e' }, { u'\u043A', 'k' },
        { u'\u043C', 'm' }, { u'\u043E', 'o' }, { u'\u0440', 'p' }, { u'\u0441', 'c' },
        { u'\u0443', 'y' }, { u'\u0445', 'x' }, { u'\u0455', 's' }, { u'\u0456', 'i' },
        { u'\u0458', 'j' }, { u'\u04BB', 'h' }, { u'\u0501', 'd' }, { u'\u0405', 'S' },
        { u'\u0406', 'I' }, { u'\u0408', 'J' }, { u'\u0410', 'A' }, { u'\u0412', 'B' },
        { u'\u0415', 'E' }, { u'\u041A', 'K' }, { u'\u041C', 'M' }, { u'\u041D', 'H' },
        { u'\u041E', 'O' }, { u'\u0420', 'P' }, { u'\u0421', 'C' }, { u'\u0422', 'T' },
        { u'\u0425', 'X' }, { u'\u0391', 'A' }, { u'\u0392', 'B' }, { u'\u0395', 'E' },
        { u'\u0396', 'Z' }, { u'\u0397', 'H' }, { u'\u0399', 'I' }, { u'\u039A', 'K' },
        { u'\u039C', 'M' }, { u'\u039D', 'N' }, { u'\u039F', 'O' }, { u'\u03A1', 'P' },
        { u'\u03A4', 'T' }, { u'\u03A5', 'Y' }, { u'\u03A7', 'X' }, { u'\u03B1', 'a' },
        { u'\u03BA', 'k' }, { u'\u03BD', 'v' }, { u'\u03BF', 'o' }, { u'\u03C1', 'p' } };
    if (std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; }))
        return text;
    QString latin = text;
    for (QChar &c : latin)
        for (const auto &pair : LookAlikes)
            if (c.unicode() == pair.lookAlike)
                c = QLatin1Char(pair.latin);
    return latin;
}

// The number an entry is sorted and searched by: its rank in the top bits, its key's hash below.
quint64 orderOf(int rank, const QString &key)
{
    return (quint64(rank) << 56) | (quint64(qHash(key)) & ((quint64(1) << 56) - 1));
}

} // namespace

void UnitMatcher::Table::add(Rank rank, const QString &key, int q, int j, const QString &form)
{
    if (key.isEmpty())
        return;
    order.append({ orderOf(rank, key), entries.size() });
    entries.append(Entry { rank, key, q, j, form });
}

// The order of entries of one rank and key among themselves does not matter: matches() sorts
// what it finds.
void UnitMatcher::Table::sort()
{
    std::sort(
        order.begin(), order.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
}

void UnitMatcher::Table::collect(
    Rank rank, const QString &key, QVector<Match> &found, Rank reportedRank) const
{
    if (key.isEmpty())
        return;
    const quint64 wanted = orderOf(rank, key);
    auto at = std::lower_bound(order.cbegin(), order.cend(), wanted,
        [](const auto &item, quint64 value) { return item.first < value; });
    for (; at != order.cend() && at->first == wanted; ++at) {
        const Entry &entry = entries[at->second];
        if (entry.key == key)
            found.append(Match { entry.quantity, entry.unit, reportedRank, entry.form });
    }
}

UnitMatcher::UnitMatcher(const Catalogue &catalogue)
    : UnitMatcher(catalogue, UnitAliases::builtin())
{
}

UnitMatcher::UnitMatcher(const Catalogue &catalogue, const QVector<UnitAliases::Alias> &aliases)
    : m_catalogue(catalogue)
{
    // Room for about five entries a unit: its name, its bare name, each symbol once or twice.
    qsizetype units = 0;
    for (int q = 1; q <= catalogue.QuantityCount; ++q)
        units += catalogue.Quantities[q].UnitCount;
    m_table.entries.reserve(5 * units);
    m_table.order.reserve(5 * units);
    for (int q = 1; q <= catalogue.QuantityCount; ++q) {
        if (!catalogue.Quantities[q].enabled())
            continue;
        const bool temperature = catalogue.isTemperature(q);
        for (int j = 1; j <= catalogue.Quantities[q].UnitCount; ++j)
            if (catalogue.Units[q][j].enabled())
                addUnit(q, j, temperature);
    }
    for (const UnitAliases::Alias &alias : aliases) {
        const int q = catalogue.findQuantity(alias.quantity);
        if (q == 0 || !catalogue.Quantities[q].enabled())
            continue;
        const int j = catalogue.findUnit(q, alias.unit);
        if (j != 0 && catalogue.Units[q][j].enabled())
            m_table.add(Alias, typedKey(symbolForm(alias.alias)), q, j, alias.alias);
    }
    m_table.sort();
}

void UnitMatcher::addUnit(int q, int j, bool temperature)
{
    const QString &name = m_catalogue.Units[q][j].Name;
    m_units.append(UnitRef { q, j });
    // The full name as written is found among the names compared in any case.
    const QString key = nameKey(name);
    m_table.add(Name, key, q, j, name);
    QString bare;
    QStringList symbols;
    splitBrackets(name, bare, symbols);
    bare = simplified(std::move(bare));
    if (bare != name) {
        const QString bareKey = nameKey(bare);
        if (bareKey != key)
            m_table.add(BareName, bareKey, q, j, bare);
    }
    for (const QString &symbol : std::as_const(symbols))
        addSymbol(q, j, symbol, temperature);
}

void UnitMatcher::addSymbol(int q, int j, const QString &symbol, bool temperature)
{
    const QString form = symbolForm(symbol);
    m_table.add(Symbol, form, q, j, symbol);
    // A symbol that is typed as it is written ("kPa") is found among the symbols as written.
    const QString typed = typedKey(form);
    if (typed != form)
        m_table.add(TypedSymbol, typed, q, j, symbol);
    // "°F" typed as "F": a single letter stands for a temperature only. "F" is the farad too,
    // and a temperature interval keeps its "°" or "deg".
    const QString withoutDegree = withoutDegrees(typed);
    if (withoutDegree != typed && (withoutDegree.size() > 1 || temperature))
        m_table.add(TypedSymbol, withoutDegree, q, j, symbol);
    const QString swapped = swappedFactors(form);
    if (!swapped.isEmpty())
        m_table.add(SwappedSymbol, typedKey(swapped), q, j, symbol);
}

// Made on the first text that matches nothing in the case typed: most never need it. Symbols
// in the other order stay out: two liberties at once read "ha" as "A·h".
const UnitMatcher::Table &UnitMatcher::otherCase()
{
    if (!m_otherCaseMade) {
        m_otherCaseMade = true;
        for (const Entry &entry : std::as_const(m_table.entries))
            if (entry.rank == Alias || entry.rank == Symbol || entry.rank == TypedSymbol)
                m_otherCase.add(
                    OtherCase, entry.key.toCaseFolded(), entry.quantity, entry.unit, entry.form);
        m_otherCase.sort();
    }
    return m_otherCase;
}

const QVector<UnitMatcher::Match> &UnitMatcher::matches(const QString &text)
{
    const auto cached = m_cache.constFind(text);
    if (cached != m_cache.constEnd())
        return *cached;

    const QString name = nameKey(text);
    const QString form = symbolForm(text);
    const QString typed = typedKey(form);
    QVector<Match> found;
    m_table.collect(Name, name, found);
    for (Match &match : found)
        if (match.form == text)
            match.rank = FullName;
    m_table.collect(Alias, typed, found);
    m_table.collect(BareName, name, found);
    m_table.collect(Symbol, form, found);
    if (typed != form)
        m_table.collect(Symbol, typed, found, TypedSymbol);
    m_table.collect(TypedSymbol, typed, found);
    m_table.collect(SwappedSymbol, typed, found);
    if (found.isEmpty()) {
        otherCase().collect(OtherCase, typed.toCaseFolded(), found);
        // Milli and mega differ only in case: "Mm" is not "mm", whatever else it may be.
        const QChar first = typed.isEmpty() ? QChar() : typed.front();
        found.removeIf([first](const Match &match) {
            const QChar written = match.form.isEmpty() ? QChar() : match.form.front();
            return (first == u'm' && written == u'M') || (first == u'M' && written == u'm');
        });
    }

    // Best rank first, then catalogue order; a unit matched in several ways keeps its best.
    std::stable_sort(found.begin(), found.end(), [](const Match &a, const Match &b) {
        return std::tie(a.rank, a.quantity, a.unit) < std::tie(b.rank, b.quantity, b.unit);
    });
    QVector<Match> unique;
    for (const Match &match : std::as_const(found)) {
        const bool seen = std::any_of(unique.cbegin(), unique.cend(), [&](const Match &kept) {
            return kept.quantity == match.quantity && kept.unit == match.unit;
        });
        if (!seen)
            unique.append(match);
    }
    return *m_cache.insert(text, unique);
}

UnitMatcher::Choice UnitMatcher::best(const QString &text, int q)
{
    Choice choice;
    for (const Match &match : matches(text)) {
        if (q != 0 && match.quantity != q)
            continue;
        if (!choice.candidates.isEmpty() && match.rank != choice.candidates.first().rank)
            break;
        choice.candidates.append(match);
    }
    if (!choice.candidates.isEmpty())
        choice.outcome = choice.candidates.size() == 1 ? Outcome::Found : Outcome::Ambiguous;
    return choice;
}

UnitMatcher::QuantityChoice UnitMatcher::quantityOf(const QString &from, const QString &to)
{
    // Copies: the second look-up may move the cache's entries.
    const QVector<Match> fromMatches = matches(from);
    const QVector<Match> toMatches = matches(to);
    // The best rank of each text in each quantity is its first match there.
    QHash<int, Rank> toBest;
    for (const Match &match : toMatches)
        if (!toBest.contains(match.quantity))
            toBest.insert(match.quantity, match.rank);

    QuantityChoice choice;
    int bestScore = RankCount;
    QVector<int> seen;
    for (const Match &match : fromMatches) {
        const auto other = toBest.constFind(match.quantity);
        if (other == toBest.constEnd() || seen.contains(match.quantity))
            continue;
        seen.append(match.quantity);
        const int score = std::max(match.rank, *other);
        if (score < bestScore) {
            bestScore = score;
            choice.quantities.clear();
        }
        if (score == bestScore)
            choice.quantities.append(match.quantity);
    }
    std::sort(choice.quantities.begin(), choice.quantities.end());
    if (!choice.quantities.isEmpty())
        choice.outcome = choice.quantities.size() == 1 ? Outcome::Found : Outcome::Ambiguous;
    return choice;
}

QVector<UnitMatcher::UnitRef> UnitMatcher::closest(const QString &text, int q, int count)
{
    QVector<UnitRef> found;
    auto add = [&](int quantity, int unit) {
        const bool seen = std::any_of(found.cbegin(), found.cend(),
            [&](const UnitRef &ref) { return ref.quantity == quantity && ref.unit == unit; });
        if (found.size() < count && !seen && (q == 0 || quantity == q))
            found.append(UnitRef { quantity, unit });
    };
    const QString latin = latinLookAlikes(text);
    if (latin != text) {
        const QVector<Match> lookAlikes = matches(latin);
        for (const Match &match : lookAlikes)
            add(match.quantity, match.unit);
    }
    QStringList names;
    QVector<UnitRef> units;
    for (const UnitRef &ref : std::as_const(m_units)) {
        if (q == 0 || ref.quantity == q) {
            names.append(m_catalogue.Units[ref.quantity][ref.unit].Name);
            units.append(ref);
        }
    }
    for (int i : closestNames(text, names, count))
        add(units[i].quantity, units[i].unit);
    return found;
}

QVector<int> UnitMatcher::closestNames(const QString &text, const QStringList &names, int count)
{
    const QString wanted = text.simplified();
    QVector<int> found;
    auto add = [&](int i) {
        if (found.size() < count && !found.contains(i))
            found.append(i);
    };
    if (!wanted.isEmpty()) {
        for (int i = 0; i < names.size(); ++i)
            if (names[i].startsWith(wanted, Qt::CaseInsensitive))
                add(i);
        for (int i = 0; i < names.size(); ++i)
            if (names[i].contains(wanted, Qt::CaseInsensitive))
                add(i);
    }
    // Names beginning like the text: cut back a character at a time, down to three. No name
    // begins with more characters than the longest name has.
    qsizetype longest = 0;
    for (const QString &name : names)
        longest = std::max(longest, name.size());
    for (qsizetype length = std::min(wanted.size() - 1, longest); found.isEmpty() && length >= 3;
         --length) {
        const QStringView start = QStringView(wanted).first(length);
        for (int i = 0; i < names.size(); ++i)
            if (names[i].startsWith(start, Qt::CaseInsensitive))
                add(i);
    }
    return found;
}
