#pragma once
// What the window says beside the phone, in the language of the computer: Chinese or English.

namespace sim::window {

struct Texts {
    const char *enterRoom;
    const char *leaveRoom;
    const char *sendingThrows;
    const char *calm;
    const char *held;
    const char *portrait;
    const char *left;
    const char *right;
    const char *look;
    const char *light;
    const char *dark;
    const char *screen;
    const char *small;
    const char *classic;
    const char *usual;
    const char *large;
    const char *comments;
    const char *noComments;
    const char *log;
    const char *noLog;
    const char *save;
    const char *savedAs; // a file's name follows
    const char *cannotWrite;
    const char *hint;
};

/// The texts of the language that the environment asks for. To be asked before the phone fixes its own.
const Texts &TextsOfTheComputer();

} // namespace sim::window
