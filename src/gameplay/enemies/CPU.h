#pragma once
// A processor objective: a hard drive under another name and look.
#include "gameplay/enemies/HardDrive.h"

class CPU : public HardDrive {
public:
    CPU();
    std::unique_ptr<Body> clone() const override;
};
