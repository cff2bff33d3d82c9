# What is installed, and what stays when it is taken away again.
murmelo_tests(program_tests
    SOURCES platform/ProgramFolders_test.cpp
    LINK murmelo_programs)
