#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QString>

#include <cstddef>
#include <functional>
#include <memory>

/// The lines of a text file, read in blocks, so that the file is never in memory as a whole.
///
/// Lines end at byte 10. A UTF-8 byte-order mark at the start of the file is passed over. Only regular files
/// are read: a pipe or a device may never end.
class LineSource {
    Q_DECLARE_TR_FUNCTIONS(LineSource)

public:
    explicit LineSource(const QString& fileName);

    /// False when the file cannot be read; error() then tells why, in the user's words or the system's.
    bool open();
    /// Called with the share of the file read so far, about every two megabytes; false ends the lines.
    void setProgress(std::function<bool(double)> progress) { m_progress = std::move(progress); }

    /// The next lines, all whole; only the last one of the file may lack its end. The characters may be
    /// changed and stay valid until the call after the next one, so that they can be looked at while more are
    /// read. False at the end of the file, after a read error
    /// (failed()) and when the progress callback said so (cancelled()).
    bool next(char*& begin, char*& end);

    /// Bytes of the file up to the end of the lines given, and of all of it as it was when it was opened.
    qint64 consumed() const { return m_blockStart + qint64(m_begin); }
    qint64 size() const { return m_size; }
    bool failed() const { return m_failed; }
    bool cancelled() const { return m_cancelled; }
    QString error() const { return m_error; }

private:
    /// Text with room for `capacity` bytes.
    struct Block {
        std::unique_ptr<char[]> text;
        std::size_t capacity = 0;
    };

    void turnBlock();
    bool readMore();

    QFile m_file;
    QString m_error;
    std::function<bool(double)> m_progress;
    Block m_blocks[2];
    int m_current = 0;
    std::size_t m_begin = 0; // of the lines to come in the current block
    std::size_t m_end = 0; // of the text read so far
    qint64 m_blockStart = 0; // position of the block in the file
    qint64 m_size = 0;
    bool m_first = false; // the current block is the first and was not given yet
    bool m_failed = false;
    bool m_cancelled = false;
    bool m_atEnd = false;
};
