#include "gui/ValueBox.h"

#include <algorithm>

ValueBox::ValueBox()
{
    command = "valuechange";
    setBounds(64.0f, 64.0f, 120.0f, 24.0f);
}

void ValueBox::addValue(const std::string& v) { values.push_back(v); }

void ValueBox::setValues(const std::vector<std::string>& v)
{
    values = v;
    current = 0;
}

std::string ValueBox::getValue() const
{
    return values.empty() ? std::string() : values[static_cast<size_t>(current)];
}

bool ValueBox::setValue(const std::string& v)
{
    auto it = std::find(values.begin(), values.end(), v);
    if (it == values.end())
        return false;
    current = static_cast<int>(it - values.begin());
    return true;
}

void ValueBox::cycle(int delta)
{
    if (values.empty())
        return;
    const int n = static_cast<int>(values.size());
    current = ((current + delta) % n + n) % n;
    playSound(clickSound);
    fireAction(command, this);
}

void ValueBox::clicked(float, float, int button)
{
    if (button == 1)
        cycle(1);
    else if (button == 3)
        cycle(-1);
}

void ValueBox::keyDown(int symbol, int character, const std::string& keyName)
{
    if (keyName == "right" || keyName == "space" || keyName == "return")
        cycle(1);
    else if (keyName == "left")
        cycle(-1);
    else
        Button::keyDown(symbol, character, keyName);
}

void ValueBox::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    drawPanel(renderer);
    drawLabel(renderer, getValue());
    drawChildren(renderer);
}
