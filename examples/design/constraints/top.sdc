create_clock -name clk -period 20.0 [get_ports clk]
set_false_path -from [get_ports reset_n]
set_output_delay -clock clk 2.0 [get_ports {tx leds[*]}]
