#pragma once

#include <functional>

/// Tells the user that a command cannot be done: the system's alert sound.
void beep();

/// Lets something else stand for the alert sound, such as a test that counts. An empty function brings the sound back.
void setBeep(std::function<void()> beep);
