#pragma once

// Makes the drawn images of the resource folders :/assets/, :/symbols/ and :/glyphs/ findable.
//
// A static library's resources are dropped by the linker unless something refers to them: call this once, before the
// first image is looked up, from any thread; further calls do nothing. Each image NAME is there as NAME.png,
// NAME@2x.png and NAME@3x.png. The image named "vesklogo@2x" is no exception: its picture at scale 1 is
// "vesklogo@2x.png", so a reader that guesses the scale from a file's name must be told the true one.
void initialiseResources();
