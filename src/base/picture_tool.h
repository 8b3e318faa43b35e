// SPDX-License-Identifier: MIT
// Pictures from files. No file is ever decoded in this process: a picture bridge stands by, which
// can neither hang nor swell nor crash the editor, and which takes pictures of its short list of
// formats only, by their content.
#pragma once

#include "base/picture_wire.h"
#include "base/progress.h"
#include "base/result.h"

#include <QImage>
#include <QPointer>
#include <QProcess>

#include <deque>
#include <functional>

namespace fennel {

struct PictureWish {
    QString path;
    PictureMode mode = PictureMode::Whole;
    QSize size = {}; // for Inside
};

struct FilePicture {
    QSize stored; // as the file tells it, before it is turned upright
    QImage image; // upright, transparent parts on black, Format_RGB32; null if it was only measured
};

// Lives in the window's thread.
class PictureTool : public QObject {
    Q_OBJECT
public:
    using Answer = std::function<void(const Result<FilePicture>&)>;

    // Nothing is started before the first wish.
    explicit PictureTool(QString tool) : m_tool(std::move(tool)) {}
    ~PictureTool() override;
    [[nodiscard]] const QString& tool() const { return m_tool; }
    // Starts the bridge in advance.
    void start();

    // Waits. Work that lasts is shown in `progress` (if not null) and can be called off there; the
    // event loop turns meanwhile. Fails with TooLarge, Malformed, Unsupported, what the system says
    // of the file, or ToolFailed if the bridge had to be ended.
    Result<FilePicture> read(const PictureWish& wish, Progress* progress = nullptr);
    // Answers later, in the order of the wishes; read() goes before all of them. Without a receiver
    // any more nothing is read.
    void ask(const PictureWish& wish, QObject* receiver, Answer answer);
    // Drops what that receiver still waits for.
    void forget(const QObject* receiver);

private:
    struct Order {
        PictureWish wish;
        QPointer<QObject> receiver;
        Answer answer;
        bool sent = false;
    };
    bool running();
    void work();
    void send(Order& order);
    void take();
    bool takeReply();
    void answerFirst(const Result<FilePicture>& result);
    void endProcess(const std::string& why);
    void waitInLoop(const bool& done, Progress& progress);

    QString m_tool;
    std::unique_ptr<QProcess> m_process;
    std::deque<Order> m_orders; // the first is under way once it was sent
    PictureReply m_reply;       // of the first, as far as it has come
    qint64 m_came = 0;
    QImage m_image;
    QByteArray m_text;
};

} // namespace fennel
