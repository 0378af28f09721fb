#pragma once

// Makes the drawn images under :/assets/, :/symbols/ and :/glyphs/ findable.
//
// A static library's resources are dropped by the linker unless something refers to them: call this once, before the
// first image is looked up; further calls do nothing. Each image NAME is there as NAME.png, NAME@2x.png and
// NAME@3x.png, and measures as many points as NAME.png has pixels. Symbols and glyphs are 24 by 24 points of black ink
// on nothing, to be tinted.
//
// Whoever loads one sets the image's device pixel ratio to the scale asked for. QImage guesses it from the name up to
// its first dot, and so takes "house.fill@2x.png" for scale 1 and the scale 1 picture of the image named "vesklogo@2x"
// for scale 2.
void initialiseResources();
