#include "shell/ui/row_icons.h"

#include <QPainter>
#include <QPixmap>
#include <cmath>
#include <numbers>

namespace vorlane::shell::ui {

namespace {

constexpr QColor kGreen(0x1a, 0x7f, 0x37);
constexpr QColor kRed(0xc6, 0x28, 0x28);

/// Draws on a square of 16 by 16, at each of the sizes that screens ask for.
template <class Draw>
QIcon Drawn(Draw&& draw) {
  QIcon icon;
  for (const int size : {16, 24, 32, 48}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 16.0, size / 16.0);
    painter.setPen(Qt::NoPen);
    draw(painter);
    painter.end();
    icon.addPixmap(picture);
    // A selected row keeps the icon's own colours.
    icon.addPixmap(picture, QIcon::Selected);
  }
  return icon;
}

}  // namespace

QIcon DoneIcon() {
  return Drawn([](QPainter& painter) {
    painter.setBrush(kGreen);
    painter.drawEllipse(QRectF(1, 1, 14, 14));
    painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({{4.5, 8.3}, {7.1, 10.9}, {11.6, 5.6}}));
  });
}

QIcon StoppedIcon() {
  return Drawn([](QPainter& painter) {
    QPolygonF octagon;
    for (int corner = 0; corner < 8; ++corner) {
      const double angle = std::numbers::pi / 8 * (2 * corner + 1);
      octagon << QPointF(8 + 7.5 * std::cos(angle), 8 + 7.5 * std::sin(angle));
    }
    painter.setBrush(kRed);
    painter.drawPolygon(octagon);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(4, 6.8, 8, 2.4), 1, 1);
  });
}

}  // namespace vorlane::shell::ui
