// A library that is no plugin.
extern "C" int noPlugin()
{
    return 1;
}
