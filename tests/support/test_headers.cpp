// A program without a purpose of its own: all tests reuse its precompiled headers,
// tests/CMakeLists.txt.
int main()
{
    return 0;
}
