#include "gameplay/enemies/CPU.h"

CPU::CPU()
{
    type = "cpu";
    setImage("data/images/cpu.png");
}

std::unique_ptr<Body> CPU::clone() const { return std::make_unique<CPU>(); }
