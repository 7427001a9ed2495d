# An installer with a licence and seven products to choose from, in the classic
# interface.
Target amd64-unicode
!include nsis_products.nsh
LicenseData "${LICENCE}"
Page license
Page components
Page instfiles
!insertmacro Products
