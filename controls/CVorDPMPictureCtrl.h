// A child window that shows one raster picture, from a byte buffer or a file, stretched over
// the whole window.
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

class CBinaryData;

class CVorDPMPictureCtrl : public QWidget {
    Q_OBJECT

public:
    explicit CVorDPMPictureCtrl(QWidget* parent = nullptr);

    // 0 for an empty buffer, which leaves the picture as it was; otherwise 1, and the control
    // shows the decoded picture, or none when the bytes are not a picture.
    int LoadFromBuffer(const CBinaryData& data);
    // 1 when the file was decoded and is shown; 0 (and no picture) otherwise.
    int Load(const QString& path);
    void Clear();

    bool HasImage() const { return !m_image.isNull(); }
    const QImage& GetImage() const { return m_image; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void SetImage(const QImage& image);

    QImage m_image;
};
