-- Sends bytes: one start bit, eight data bits, one stop bit.
library ieee;
use ieee.std_logic_1164.all;

entity uart_tx is
  generic (DIVIDER : positive := 434);
  port (
    clk     : in  std_logic;
    reset_n : in  std_logic;
    start   : in  std_logic;
    data    : in  std_logic_vector(7 downto 0);
    tx      : out std_logic);
end entity;

architecture rtl of uart_tx is
  signal shift : std_logic_vector(9 downto 0) := (others => '1');
  signal count : natural range 0 to DIVIDER - 1 := 0;
begin
  tx <= shift(0);

  process (clk, reset_n)
  begin
    if reset_n = '0' then
      shift <= (others => '1');
      count <= 0;
    elsif rising_edge(clk) then
      if start = '1' then
        shift <= '1' & data & '0';
        count <= 0;
      elsif count = DIVIDER - 1 then
        shift <= '1' & shift(9 downto 1);
        count <= 0;
      else
        count <= count + 1;
      end if;
    end if;
  end process;
end architecture;
