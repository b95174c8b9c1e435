#include "core/GameMain.h"

int main(int argc, char** argv) { return gameMain(argc, argv); }
