#pragma once

// How long the interface's movements take, in milliseconds, and whether there are any.
namespace kit::Animations {

constexpr int Push = 350;
constexpr int Fade = 250;

// 0 while animations are off, as for a person who asked for reduced motion.
int duration(int milliseconds);
void setEnabled(bool enabled);

} // namespace kit::Animations
