#pragma once

/** The tree of all that can be picked of a drawable. */
class CGLTree
{
public:
    CGLTree() = default;
};
