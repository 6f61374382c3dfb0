// Project and diagram files that are dropped on a window.
#pragma once

#include <QObject>
#include <string>

class FileDrops final : public QObject {
    Q_OBJECT

public:
    explicit FileDrops(QWidget* window);

Q_SIGNALS:
    void Dropped(const std::string& path);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
