# Installed by the build work
