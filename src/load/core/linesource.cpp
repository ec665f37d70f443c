#include "load/core/linesource.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>

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
        m_error = QString::fromLocal8Bit(std::strerror(info.isDir() ? EISDIR : EINVAL));
        return false;
    }
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        m_error = m_file.errorString();
        return false;
    }
    m_size = m_file.size();
    m_capacity = blockSize;
    m_text.reset(new char[m_capacity]);
    if (refill() && m_end >= 3 && std::memcmp(m_text.get(), "\xEF\xBB\xBF", 3) == 0)
        m_begin = m_searched = 3;
    return !m_failed;
}

// Moves what is left of the text to the front; a line that fills the room makes it twice as large.
void LineSource::makeRoom()
{
    const std::size_t left = m_end - m_begin;
    if (left > m_capacity / 2) {
        std::unique_ptr<char[]> larger(new char[m_capacity * 2]);
        std::memcpy(larger.get(), m_text.get() + m_begin, left);
        m_text = std::move(larger);
        m_capacity *= 2;
    } else {
        std::memmove(m_text.get(), m_text.get() + m_begin, left);
    }
    m_blockStart += qint64(m_begin);
    m_searched -= m_begin;
    m_begin = 0;
    m_end = left;
}

bool LineSource::refill()
{
    if (m_atEnd || m_failed || m_cancelled)
        return false;
    makeRoom();
    const double share =
        m_size > 0 ? std::min(1.0, double(m_blockStart + qint64(m_end)) / double(m_size)) : 0.0;
    if (m_progress && !m_progress(share)) {
        m_cancelled = true;
        return false;
    }
    const qint64 got = m_file.read(m_text.get() + m_end, qint64(std::min(m_capacity - m_end, blockSize)));
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
    bool more = m_begin == m_end ? refill() : true;
    void* lineEnd = nullptr;
    while (more) {
        lineEnd = memrchr(m_text.get() + m_searched, '\n', m_end - m_searched);
        if (lineEnd)
            break;
        m_searched = m_end;
        more = refill();
    }
    if (m_failed || m_cancelled || m_begin == m_end)
        return false;
    begin = m_text.get() + m_begin;
    end = lineEnd ? static_cast<char*>(lineEnd) + 1 : m_text.get() + m_end;
    m_begin = m_searched = std::size_t(end - m_text.get());
    return true;
}
