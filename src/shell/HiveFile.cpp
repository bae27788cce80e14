// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
#include "shell/HiveFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>
#include <QStringDecoder>

namespace
{

const QString RootPrefix = QStringLiteral("HKEY_CURRENT_USER\\");
const QString ShortRootPrefix = QStringLiteral("HKCU\\");
const QString Header = QStringLiteral("Windows Registry Editor Version 5.00");
const QString OldHeader = QStringLiteral("REGEDIT4");

QString folded(const QString &text)
{
    return text.toCaseFolded();
}

// Reads a quoted string starting at text[pos] == '"'; pos ends after the closing quote.
// Returns false when the closing quote is missing. Sets unknownEscape for "\x" other than
// "\\" and "\"", which is kept as written.
bool readQuoted(QStringView text, qsizetype &pos, QString &out, bool &unknownEscape)
{
    ++pos;
    while (pos < text.size()) {
        const QChar c = text[pos++];
        if (c == u'"')
            return true;
        if (c == u'\\' && pos < text.size()) {
            const QChar next = text[pos++];
            if (next == u'\\' || next == u'"') {
                out += next;
            } else {
                out += c;
                out += next;
                unknownEscape = true;
            }
        } else {
            out += c;
        }
    }
    return false;
}

// "hex(1):41,00,42,00,00,00" -> "AB": UTF-16LE bytes with a terminating NUL.
bool readHexString(QStringView bytesText, QString &out)
{
    QByteArray bytes;
    for (QStringView part : bytesText.split(u',', Qt::SkipEmptyParts)) {
        bool ok = false;
        const uint byte = part.trimmed().toUInt(&ok, 16);
        if (!ok || byte > 255)
            return false;
        bytes += char(byte);
    }
    if (bytes.size() % 2)
        return false;
    out = QString(reinterpret_cast<const QChar *>(bytes.constData()), bytes.size() / 2);
    // QChar is UTF-16 in host order; convert from little-endian explicitly.
    for (qsizetype i = 0; i < out.size(); ++i)
        out[i] = QChar(ushort(uchar(bytes[2 * i]) | (uchar(bytes[2 * i + 1]) << 8)));
    if (out.endsWith(QChar(0)))
        out.chop(1);
    return true;
}

QString hexString(const QString &value)
{
    QString text = QStringLiteral("hex(1):");
    auto addByte = [&](uint byte) { text += QStringLiteral("%1,").arg(byte, 2, 16, QChar(u'0')); };
    for (QChar c : value) {
        addByte(c.unicode() & 0xff);
        addByte(c.unicode() >> 8);
    }
    text += QStringLiteral("00,00");
    return text;
}

QString quoted(const QString &text)
{
    QString out = QStringLiteral("\"");
    for (QChar c : text) {
        if (c == u'\\' || c == u'"')
            out += u'\\';
        out += c;
    }
    return out + u'"';
}

bool needsHex(const QString &value)
{
    for (QChar c : value)
        if (c.unicode() < 0x20 || c.unicode() == 0x7f)
            return true;
    return false;
}

QString parentOf(const QString &path)
{
    const qsizetype cut = path.lastIndexOf(u'\\');
    return cut < 0 ? QString() : path.left(cut);
}

} // namespace

HiveFile::HiveFile(const QString &fileName, bool readOnly)
    : m_fileName(fileName)
    , m_readOnly(readOnly)
{
    QFile file(fileName);
    if (file.open(QIODevice::ReadOnly)) {
        m_original = file.readAll();
        parse(m_original);
    }
}

void HiveFile::parse(const QByteArray &data)
{
    QString text;
    if (data.startsWith("\xff\xfe") || data.startsWith("\xfe\xff")) {
        auto decoder = QStringDecoder(
            data.startsWith("\xff\xfe") ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
        text = decoder.decode(data.mid(2));
        m_damaged |= decoder.hasError();
    } else {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        text = decoder.decode(data.startsWith("\xef\xbb\xbf") ? data.mid(3) : data);
        m_damaged |= decoder.hasError();
    }
    if (text.contains(QChar(0)))
        m_damaged = true;

    const QStringList lines = text.split(u'\n');
    bool headerSeen = false;
    bool inKey = false;
    QString currentPath;
    QSet<QString> sectionsSeen;
    for (qsizetype n = 0; n < lines.size(); ++n) {
        QString line = lines[n];
        if (line.endsWith(u'\r'))
            line.chop(1);
        // A hex value may go on over several lines, each but the last ending in "\".
        while (
            line.endsWith(u'\\') && line.contains(QStringLiteral("=hex")) && n + 1 < lines.size()) {
            line.chop(1);
            QString next = lines[++n];
            if (next.endsWith(u'\r'))
                next.chop(1);
            line += next.trimmed();
        }
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(u';'))
            continue;
        if (!headerSeen) {
            headerSeen = true;
            if (trimmed == Header || trimmed == OldHeader)
                continue;
            m_damaged = true;
        }
        if (trimmed.startsWith(u'[')) {
            inKey = false;
            if (!trimmed.endsWith(u']') || trimmed.startsWith(QStringLiteral("[-"))) {
                m_damaged = true;
                continue;
            }
            QString path = trimmed.mid(1, trimmed.size() - 2);
            if (path.startsWith(RootPrefix, Qt::CaseInsensitive))
                path = path.mid(RootPrefix.size());
            else if (path.startsWith(ShortRootPrefix, Qt::CaseInsensitive))
                path = path.mid(ShortRootPrefix.size());
            else {
                m_damaged = true; // a key of another hive: not ours to keep
                continue;
            }
            // A NUL in a name could never be written back (it marks a file as damaged).
            if (path.isEmpty() || path.contains(QStringLiteral("\\\\"))
                || path.contains(QChar(0))) {
                m_damaged = true;
                continue;
            }
            if (sectionsSeen.contains(folded(path)))
                m_damaged = true; // a key twice: its values are merged
            sectionsSeen.insert(folded(path));
            currentPath = ensureKey(path).path;
            inKey = true;
            continue;
        }
        if (!inKey) {
            m_damaged = true;
            continue;
        }
        qsizetype pos = 0;
        QString name;
        bool unknownEscape = false;
        if (trimmed.startsWith(u'@')) {
            pos = 1;
        } else if (trimmed.startsWith(u'"')) {
            if (!readQuoted(trimmed, pos, name, unknownEscape) || name.contains(QChar(0))) {
                m_damaged = true;
                continue;
            }
        } else {
            m_damaged = true;
            continue;
        }
        if (pos >= trimmed.size() || trimmed[pos] != u'=') {
            m_damaged = true;
            continue;
        }
        ++pos;
        const QStringView data = QStringView(trimmed).sliced(pos);
        QString value;
        bool ok = false;
        if (data.startsWith(u'"')) {
            qsizetype end = 0;
            ok = readQuoted(data, end, value, unknownEscape) && end == data.size();
        } else if (data.startsWith(u"hex(1):") || data.startsWith(u"hex(2):")) {
            ok = readHexString(data.sliced(7), value);
        } else if (data.startsWith(u"dword:")) {
            const uint number = data.sliced(6).toUInt(&ok, 16);
            value = QString::number(number);
        }
        if (!ok) {
            m_damaged = true; // unreadable, binary or a deletion: skipped
            continue;
        }
        m_damaged |= unknownEscape;
        Key &key = m_keys[keyIndex(currentPath)];
        bool replaced = false;
        for (auto &entry : key.values) {
            if (folded(entry.first) == folded(name)) {
                entry.second = value;
                replaced = true;
                m_damaged = true; // a value twice: the last one counts
            }
        }
        if (!replaced)
            key.values.append({ name, value });
    }
    if (!data.isEmpty() && !headerSeen)
        m_damaged = true;
}

QByteArray HiveFile::serialize() const
{
    QString text = Header + QStringLiteral("\r\n\r\n");
    for (const Key &key : m_keys) {
        text += u'[' + RootPrefix + key.path + QStringLiteral("]\r\n");
        for (const auto &[name, value] : key.values) {
            text += name.isEmpty() ? QStringLiteral("@") : quoted(name);
            text += u'=';
            text += needsHex(value) ? hexString(value) : quoted(value);
            text += QStringLiteral("\r\n");
        }
        text += QStringLiteral("\r\n");
    }
    return text.toUtf8();
}

int HiveFile::keyIndex(const QString &path) const
{
    return m_index.value(folded(path), -1);
}

HiveFile::Key &HiveFile::ensureKey(const QString &path)
{
    const int found = keyIndex(path);
    if (found >= 0)
        return m_keys[found];
    const QString parent = parentOf(path);
    if (!parent.isEmpty())
        ensureKey(parent);
    m_keys.append(Key { path, {} });
    m_index.insert(folded(path), int(m_keys.size() - 1));
    return m_keys.last();
}

void HiveFile::rebuildIndex()
{
    m_index.clear();
    for (int i = 0; i < m_keys.size(); ++i)
        m_index.insert(folded(m_keys[i].path), i);
}

bool HiveFile::createKey(const QString &path)
{
    if (keyIndex(path) >= 0)
        return false;
    ensureKey(path);
    return true;
}

std::optional<QString> HiveFile::value(const QString &path, const QString &name) const
{
    const int index = keyIndex(path);
    if (index < 0)
        return std::nullopt;
    const QString wanted = folded(name);
    for (const auto &entry : m_keys[index].values)
        if (folded(entry.first) == wanted)
            return entry.second;
    return std::nullopt;
}

bool HiveFile::setValue(const QString &path, const QString &name, const QString &value)
{
    Key &key = ensureKey(path);
    const QString wanted = folded(name);
    for (auto &entry : key.values) {
        if (folded(entry.first) == wanted) {
            entry.second = value;
            return true;
        }
    }
    key.values.append({ name, value });
    return true;
}

QStringList HiveFile::subKeys(const QString &path) const
{
    QStringList names;
    const QString prefix = folded(path) + u'\\';
    for (const Key &key : m_keys) {
        const QString lower = folded(key.path);
        if (lower.startsWith(prefix) && !lower.mid(prefix.size()).contains(u'\\'))
            names.append(key.path.mid(prefix.size()));
    }
    return names;
}

QList<QPair<QString, QString>> HiveFile::values(const QString &path) const
{
    const int index = keyIndex(path);
    return index < 0 ? QList<QPair<QString, QString>>() : QList(m_keys[index].values);
}

bool HiveFile::deleteTree(const QString &path)
{
    const QString lower = folded(path);
    const QString prefix = lower + u'\\';
    const auto before = m_keys.size();
    m_keys.removeIf([&](const Key &key) {
        const QString keyPath = folded(key.path);
        return keyPath == lower || keyPath.startsWith(prefix);
    });
    rebuildIndex();
    return m_keys.size() != before;
}

bool HiveFile::flush()
{
    if (m_readOnly)
        return true;
    m_error.clear();
    const QFileInfo info(m_fileName);
    if (!QDir().mkpath(info.absolutePath())) {
        m_error = QStringLiteral("cannot create the folder %1").arg(info.absolutePath());
        return false;
    }
    if (m_damaged && !m_backupKept && !m_original.isEmpty()) {
        QSaveFile backup(m_fileName + QStringLiteral(".bad"));
        if (!backup.open(QIODevice::WriteOnly) || backup.write(m_original) != m_original.size()
            || !backup.commit()) {
            m_error = backup.errorString();
            return false;
        }
        m_backupKept = true;
    }
    QSaveFile file(m_fileName);
    const QByteArray bytes = serialize();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        m_error = file.errorString();
        return false;
    }
    return true;
}
