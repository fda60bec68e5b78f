// Nothing of its own: it is compiled to precompile GoogleTest.
