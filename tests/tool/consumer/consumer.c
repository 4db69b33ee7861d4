/* An unknown selector is answered with 3. */
#include <vela_fcpxml/plugin.h>
int main(void)
{
    return xProjectConverterEntry(99, 0) == 3 ? 0 : 1;
}
