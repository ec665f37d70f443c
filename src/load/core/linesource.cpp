#include "load/core/linesource.h"

#include <QFileInfo>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr std::size_t blockSize =
    2 * 1024 * 1024; // bytes; small enough to stay in the cache between reading and parsing

} // namespace

LineSource::LineSource(const QString& fileName)
    : m_file(fileName)
{
}

bool LineSource::open()
{
    const QFileInfo info(m_file.fileName());
    if (info.exists() && !info.isFile()) {
        m_error = info.isDir() ? tr("это каталог, а не файл")
                               : tr("это не файл данных, а канал, сокет или устройство");
        return false;
    }
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        m_error = m_file.errorString();
        return false;
    }
    m_size = m_file.size();
    turnBlock();
    m_first = true;
    readMore(); // some files open and cannot be read
    return !m_failed;
}

/// Goes over to the other block, with what is left of the text.
void LineSource::turnBlock()
{
    const char* const left = m_blocks[m_current].text.get() + m_begin;
    const std::size_t length = m_end - m_begin;
    m_blockStart += qint64(m_begin);
    m_current = 1 - m_current;
    Block& block = m_blocks[m_current];
    if (block.capacity < length + blockSize) {
        block.capacity = 0;
        block.text.reset(new char[length + blockSize]);
        block.capacity = length + blockSize;
    }
    if (length > 0)
        std::memcpy(block.text.get(), left, length);
    m_begin = 0;
    m_end = length;
}

/// Appends to the current block, which becomes twice as large for a line that fills it.
bool LineSource::readMore()
{
    if (m_atEnd || m_failed || m_cancelled)
        return false;
    const double share =
        m_size > 0 ? std::min(1.0, double(m_blockStart + qint64(m_end)) / double(m_size)) : 0.0;
    if (m_progress && !m_progress(share)) {
        m_cancelled = true;
        return false;
    }
    Block& block = m_blocks[m_current];
    if (block.capacity - m_end < blockSize) {
        std::unique_ptr<char[]> larger(new char[block.capacity * 2]);
        std::memcpy(larger.get(), block.text.get(), m_end);
        block.text = std::move(larger);
        block.capacity *= 2;
    }
    const qint64 got = m_file.read(block.text.get() + m_end, qint64(blockSize));
    if (got < 0) {
        m_failed = true;
        m_error = m_file.errorString();
        return false;
    }
    m_atEnd = got == 0;
    m_end += std::size_t(got);
    return !m_atEnd;
}

bool LineSource::next(char*& begin, char*& end)
{
    std::size_t searched = 0;
    if (!std::exchange(m_first, false)) {
        turnBlock();
        searched = m_end;
        readMore();
    }
    const char* lineEnd = nullptr;
    do {
        const char* const text = m_blocks[m_current].text.get();
        lineEnd = static_cast<const char*>(memrchr(text + searched, '\n', m_end - searched));
        searched = m_end;
    } while (!lineEnd && readMore());
    char* const text = m_blocks[m_current].text.get();
    if (m_blockStart == 0 && m_end >= 3 && std::memcmp(text, "\xEF\xBB\xBF", 3) == 0)
        m_begin = 3;
    if (m_failed || m_cancelled || m_begin == m_end)
        return false;
    begin = text + m_begin;
    end = text + (lineEnd ? std::size_t(lineEnd - text) + 1 : m_end);
    m_begin = std::size_t(end - text);
    return begin < end;
}
