#pragma once

struct Options;

//! Draws the page that the options ask for into their file, on virtual time; needs no display.
//! Makes the application object itself. Returns the program's exit code.
int drawPicture(const Options &options, int &argc, char **argv);
