#pragma once

/**
 * Makes sure that the current context can draw and links the shaders. Where it can't, tells the user, prints
 * what the system is, and ends the process: nothing would ever be seen.
 */
void RequireOpenGL();
