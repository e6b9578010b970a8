#pragma once

#include <filedialog.h>

#include <QList>

// Answers every file dialog the editor opens with one path, at once, and
// records what was asked, while it lives.
class FileAnswer
{
public:
    explicit FileAnswer(const QString &path)
        : m_previous(FileDialog::setHandler([this, path](QWidget *, const FileDialog::Request &request) {
            requests.append(request);
            return path;
        }))
    {
    }
    ~FileAnswer() { FileDialog::setHandler(m_previous); }
    FileAnswer(const FileAnswer &) = delete;
    FileAnswer &operator=(const FileAnswer &) = delete;

    QList<FileDialog::Request> requests;

private:
    FileDialog::Handler m_previous;
};
