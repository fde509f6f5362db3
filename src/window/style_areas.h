#pragma once

#include <QStyleOptionSlider>
#include <optional>

#include "window/look.h"
#include "window/style_painting.h"
#include "window/tokens.h"

// Frames and what belongs to areas: scroll bars, headings, handles between them, tabs, progress.
namespace commtest {

constexpr int kScrollBarWidth = 12;
constexpr int kShortestThumb = 38;  // with its margins

// What a frame takes on each side; none if the frame is the toolkit's.
std::optional<QMargins> FrameOf(const QWidget* frame);
void PaintFrame(QPainter& painter, const QStyleOption& option, const QWidget* frame, const Tokens& tokens);

// Whether it is the list that a field drops down.
bool IsDropList(const QWidget* view);

void PaintBand(QPainter& painter, const QRect& band, Look look, const Tokens& tokens);

QRect PartOfScrollBar(const QStyleOptionSlider& option, QStyle::SubControl part);
void PaintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QWidget* bar,
                    const Tokens& tokens);

void PaintHeading(QPainter& painter, const QRect& section, const Tokens& tokens);
void PaintHandle(QPainter& painter, const QStyleOption& option, const Tokens& tokens);
void PaintProgress(QPainter& painter, const QStyleOptionProgressBar& option, const Tokens& tokens);
void PaintTab(QPainter& painter, const QStyleOptionTab& option, const Tokens& tokens);

}  // namespace commtest
