#pragma once
// The program entry as a library function, so main() stays one line.

// Starts the game, runs the main loop until quit, shuts down; returns the exit code.
int gameMain(int argc, char** argv);
