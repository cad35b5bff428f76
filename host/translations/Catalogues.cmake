# The head unit's catalogues, shared by the build, the update target and
# the catalogue check. Each catalogue lists the source folders (relative
# to the project root) whose translatable texts it holds:
#   radio     the radio screen: the plugin's code and its three layouts
#   headunit  the head unit's own screens: the host SDK and the shell
set(RADIO_LANGUAGES de fr cs)
set(RADIO_CATALOGUES radio headunit)
set(RADIO_CATALOGUE_radio_SOURCES plugin)
set(RADIO_CATALOGUE_headunit_SOURCES host tools/headunit)
# No source locations: a moved line does not churn the catalogues.
set(RADIO_LUPDATE_OPTIONS -locations none)
