#pragma once
// The command-line tools for level makers that run instead of the game:
//   --check-level FILE...   lists the problems of level files
//   --tiled-project DIR     writes the Tiled project for the game's levels
// Neither opens a window or the audio device.

// True when the arguments asked for a tool; `status` is then its exit status.
bool runLevelTool(int argc, char** argv, int& status);
