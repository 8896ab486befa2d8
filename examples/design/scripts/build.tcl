# Reads the sources in the order in which they depend on each other.
foreach source {
    rtl/core/core_pkg.sv
    rtl/core/alu.v
    rtl/core/core.sv
    rtl/uart/uart_tx.vhd
    rtl/top.v
} {
    puts "reading $source"
}
