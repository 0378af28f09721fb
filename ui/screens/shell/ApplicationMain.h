#pragma once

// The whole program: runs the application until it ends and returns the exit status of the process. Called once, by
// main, which does nothing else.
int applicationMain(int argc, char** argv);
